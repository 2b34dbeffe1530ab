#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>
#include <memory>

#include "bulk/FindReplace.h"

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTimer;

namespace folvane {

class EditCombo;
class FrmInput;
class TextCombo;

/// Opens the window that finds and replaces beside the entry window, or brings it to the front. It closes with the
/// entry window, and is unloaded as it closes. @throws DataError
void OpenReplace(FrmInput& input);

/// Finds records by what their fields hold, shows a hit in the entry window, and overwrites the fields of hits in the
/// table. It stands beside the entry window, and both share the position in the current records. While a record is
/// being edited there it neither moves nor overwrites.
class FrmReplace : public QDialog {
 public:
  FrmReplace();

  QString TableName;

  /// Shows the window beside the entry window. @throws DataError
  void Open(FrmInput& input);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void MakeControls();
  void MakeKeys();
  void LayOut();
  void Connect();
  void Load();

  void EnableFinding();
  void EnableReplacing();
  void TakeWhole(bool whole);
  void TakeLike(bool like);

  void FindNext();
  void Replace();
  void ReplaceAll();
  /// Takes what is typed in the entry window into its record. Answers whether that record is not being edited.
  bool IsSettled();
  void TellUnsettled();
  void SelectHit();

  SearchTerms Terms() const;
  SearchWay Way() const;
  void CountSoon();
  void CountOn();
  void ShowReplaced(qint64 count);

  QPointer<FrmInput> input_;
  std::unique_ptr<FindReplace> search_;
  HitCount hits_;
  bool countsAnew_ = false;
  QTimer* counting_;
  EditCombo *find_, *replace_;
  TextCombo *field_, *way_;
  QRadioButton *allFields_, *oneField_;
  QCheckBox *whole_, *like_, *case_;
  QPushButton *findNext_, *replaceOne_, *replaceAll_, *cancel_, *help_;
  QLabel* status_;
  QProgressBar* progress_;
};

}  // namespace folvane
