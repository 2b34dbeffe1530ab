#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

class TextCombo;

/// Asks for the table in which the records to be merged are looked for, among the file tables whose records have a
/// status, and goes on with the window of those records. Used through DefaultInstance; whoever showed it unloads it.
class FrmSelTbl : public QDialog {
 public:
  FrmSelTbl();

  QString TargetID;     ///< the key of the record that stays
  QString TargetTitle;  ///< what the windows call it, "" for nothing
  QString Outcome;      ///< what came of it, in words; "" when nothing was merged

  /// Reads the tables and shows the window modally, unless there is no table. @throws DataError
  void Open();

 private:
  void LayOut();
  void Load();
  void Choose(int index);
  void Merge(int index);

  TextCombo *captions_, *tables_;
};

}  // namespace folvane
