#pragma once

#include <QDialog>
#include <QString>

#include <folvane/HostServices.h>

#include "bulk/BatchUpdate.h"

class QCheckBox;
class QLabel;
class QProgressBar;

namespace folvane {

class EditCombo;
class TableParameters;
class TextBox;
class TextCombo;

/// Replaces a value in one field of many records of the browser's table. Used through DefaultInstance; whoever opened
/// it reads IsSucceed and unloads it.
class FrmBactchUpdate : public QDialog {
 public:
  FrmBactchUpdate();

  QString TableName;
  int vsPos = -1;          ///< the position of the record selected in the list, from 1; -1 for none
  bool IsSucceed = false;  ///< whether a replacement has run; left as it is when none has
  /// The browser's; the row selected in it is that of the table. Its conditions bind what is filled by statements.
  const TableParameters* Parameters = nullptr;

  /// Fills the lists and shows the dialog modally. @throws DataError
  void Open();

 private:
  void LayOut();
  void Load();
  void ShowValues();
  void ClearCount();
  void ShowCount();
  void ReplaceIfConfirmed();
  MessageRequest Asked(const QString& question) const;
  void Replace(const QString& field);
  /// @return whether the walk came to its end
  bool WalkThrough(const QString& field);

  bool FillsEmpty() const;
  FillOfEmpty Fill(const QString& field) const;
  BatchWalk Walk(const QString& field) const;

  TextCombo *field_, *direction_;
  EditCombo* find_;
  TextBox* value_;
  QCheckBox *whole_, *case_;
  QLabel* count_;
  QProgressBar* progress_;
  QWidget* stop_;
  QString chosenField_;  ///< the field of the caption chosen last
};

}  // namespace folvane
