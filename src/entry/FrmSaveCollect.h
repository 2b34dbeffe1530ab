#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <optional>

#include "entry/RuleEditor.h"

class QCheckBox;
class QLabel;
class QModelIndex;
class QPushButton;
class QStandardItemModel;

namespace folvane {

class ChoiceRelay;
class EditCombo;
class RecordListView;

/// Edits the proofing rules of a table: six lines of a field, a relation and a value.
class FrmSaveCollect : public QDialog {
 public:
  FrmSaveCollect();

  QString CurrTable;

  /// Reads the rules of the table and shows the window modally. @throws DataError
  void Open();

 protected:
  /// Watches the focus come into the value boxes and go out of them.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Line {
    EditCombo *field, *relation, *value;
  };

  EditCombo* NewBox(const QString& array, int line, const QString& tip, std::function<QStringList()> read);
  void AddLines();
  void AddTables();
  void LayOut();
  void Connect();

  void Load();
  void FillTables();
  /// Goes over to a table: its name and its rules.
  void ShowTable(const QString& table, const QString& name);
  void ShowRules();
  void ClearCboTxt();
  void EnableLine(int line);
  RuleLine Said(int line) const;

  void EnterValue(int line);
  void LeaveValue(int line, Qt::FocusReason reason);
  void SaveTempOfLeft();
  void ChooseValue(int line);
  void UseCurrentTable(bool current);
  void DeleteAll();
  void Save();

  std::optional<RuleEditor> editor_;
  std::array<Line, RuleEditor::kLineCount> lines_;
  int left_ = -1;  // the line whose value box was left and is still to be noted
  RecordListView* tableList_;
  QStandardItemModel* tables_;
  ChoiceRelay* tableChoice_;
  QLabel* tableName_;
  QCheckBox *current_, *removeAll_;
  QPushButton *ok_, *cancel_;
};

}  // namespace folvane
