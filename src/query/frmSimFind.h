#pragma once

#include <QDialog>
#include <QMap>
#include <QString>
#include <QStringList>

class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace folvane {

class DateBox;
class EditCombo;
class LikeCriterionBox;
class RangeCriterionBox;
struct SearchFieldRow;
struct SimpleCriteria;

/// A query form that is made of the fields set up for one table.
class frmSimFind : public QDialog {
 public:
  frmSimFind();

  QString TableName;    ///< in
  QString M_Condition;  ///< in: a restriction that is put behind the condition
  QString ReturnSql;    ///< out: the condition without Where; "" when the user left without a query
  QStringList Ignored;  ///< out: what a compound query left out that was gone over to

  /// Makes the inputs of the table and shows the window modally. @throws DataError
  void Open();

 private:
  struct DatePair {
    QLabel* caption;
    DateBox *begin, *end;
  };
  struct DictionaryBox {
    QLabel* caption;
    EditCombo* box;
  };

  void LayOut();
  /// Makes the inputs of the fields that are set up, one below the other.
  void BuildQueryForm();
  void ClearQueryForm();
  void AddInput(const SearchFieldRow& field);
  QWidget* NewDatePair(const SearchFieldRow& field);
  QWidget* NewDictionaryBox(const SearchFieldRow& field);
  void LineUpCaptions();

  bool HasInputs() const;
  SimpleCriteria Entered() const;
  void TakeQuery();
  void GoToCompoundQuery();
  void SetUp();

  // By their index.
  QMap<int, LikeCriterionBox*> likes_;
  QMap<int, RangeCriterionBox*> ranges_;
  QMap<int, DatePair> dates_;
  QMap<int, DictionaryBox> dictionaries_;
  QList<QLabel*> captions_;
  QScrollArea* scroll_;
  QWidget* inputs_;
  QVBoxLayout* column_;
};

}  // namespace folvane
