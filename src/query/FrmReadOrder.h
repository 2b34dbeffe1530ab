#pragma once

#include <QDialog>
#include <QString>

class QPushButton;

namespace folvane {

class FieldListView;
class TextCombo;

/// Chooses for each table the field by which the class tree groups its records.
class FrmReadOrder : public QDialog {
 public:
  FrmReadOrder();

  qint16 vsFlag = 0;  ///< in: 1 for file tables, 2 for archive tables
  QString CurrTable;  ///< the table that is chosen

  /// Reads the tables and shows the window modally; a missing YearFormula.Ini is told instead. @throws DataError
  void Open();

 private:
  void LayOut();
  void Connect();
  void Load();
  void ChooseTable(int index);
  void AddField();
  void Save();

  TextCombo *captions_, *tables_;
  FieldListView *fields_, *chosen_;
  QPushButton *add_, *remove_, *ok_, *cancel_;
};

}  // namespace folvane
