#pragma once

#include <QHash>
#include <QWidget>
#include <functional>

#include "components/transfer/TransferSettings.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolBar;

namespace folvane {
struct ToolKey;
}

namespace folvane::transfer {

class SettingsList;

/// How the archive numbers of a table are made up, part by part, with an example that follows every change.
class FormatPage : public QWidget {
 public:
  FormatPage(QWidget* parent, TransferSettings& settings);

  /// The settings were changed here.
  std::function<void()> onChange;
  /// Something to be said in the status line.
  std::function<void(const QString& text)> onWord;

  /// Shows the settings anew.
  void Refresh();
  /// Shows the format of a table that has one or may have one.
  void ShowTable(const QString& table);

 private:
  using Handler = void (FormatPage::*)();

  void LayOut();
  QWidget* NewPartsBox();
  QWidget* NewPartEditor();
  QWidget* NewNumberBox();
  QToolBar* NewPartKeys();
  QAction* NewKey(QToolBar& bar, const ToolKey& key, Handler handler);
  void NameInputs();
  void ConnectInputs();

  QString Table() const;
  void FillTables();
  void FillFields();
  void FillParts();
  void ShowPart();
  void ShowExample();
  void ComposeExample();
  void Enable();
  bool HasPart() const;
  std::size_t Part() const;
  QString& SampleOf(std::size_t part);
  QStringList Samples();

  void ChangePart();
  void ChangeNumber();
  void ChangeSample();
  void Take(const QString& word = {});
  void AddPart();
  void DeletePart();
  void MoveUp();
  void MoveDown();
  void Move(int by);

  TransferSettings& settings_;
  NumberFormat format_;              ///< of the table that is shown
  QHash<QString, QString> samples_;  ///< by table and field
  QComboBox *table_, *field_, *store_, *folder_;
  SettingsList* parts_ = nullptr;
  QLineEdit *separator_, *sample_;
  QSpinBox* length_;
  QCheckBox* showsCode_;
  QLabel *example_, *exampleFolder_, *findings_, *findingsIcon_;
  QAction *delete_ = nullptr, *up_ = nullptr, *down_ = nullptr;
};

}  // namespace folvane::transfer
