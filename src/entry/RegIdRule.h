#pragma once

#include <QString>

#include "data/Recordset.h"

namespace folvane {

/// The rules by which a registration number is made, by their numbers in RegIDFormula.Ini. Any other number makes none.
namespace RegFormula {
enum : int {
  None = 0,
  AutoNumber = 1,  ///< filled like any other field, or by the database
  CreatedDate = 2,
  DocNo = 3,
  CreatedDateAndRights = 4,
  FileDate = 5,
  FileDateAndRights = 6,
  BrowserCondition = 7,
};
}  // namespace RegFormula

/// How the registration numbers of a table are made while its entry form is open.
struct RegIdRule {
  QString table;
  int formula = RegFormula::None;
  QString rowLimit;      ///< the user's rights condition in brackets; "" for all rows
  QString filter;        ///< the condition of the browser's list
  bool useSign = false;  ///< the year of a document number stands in 〔 〕, not in [ ]

  /// Whether a value carried into RegID would be overwritten by the rule.
  bool Computes() const { return formula != RegFormula::None && formula != RegFormula::AutoNumber; }
};

/// The number after the greatest one of the year or the scope that the rule counts in; 1 for the first.
/// @param fieldName the date that the year is matched in; not regarded under BrowserCondition, nor is the prefix
/// @throws DataError, NumberError
int NextRegId(const RegIdRule& rule, const QString& fieldName, const QString& prefix);

/// Whether the number of the current record stands in another record of the same year or scope too: nothing keeps two
/// who add a record at once from the same number. @throws DataError
bool IsRegIdShared(const Recordset& records, const RegIdRule& rule);

/// The digits of a document number between the year's closing bracket and the first 号; "" when it has none there.
QString RunningNumberIn(const QString& docNo, bool useSign);

/// Puts the number into RegID of a record that holds its other values. @throws DataError, NumberError
void ComputeRegId(Recordset& records, const RegIdRule& rule);

/// A field that is being typed into.
struct TypedField {
  int controlType = 0;
  QString dataField;
  QString text;  ///< of a date control as YYYY-MM-DD
};

/// Has RegID follow the field that it is made from. Answers whether RegID was written.
/// @param isNew a record that is being added; one that is changed keeps its number unless it is part of DocNo
bool FollowTyping(Recordset& records, const RegIdRule& rule, const TypedField& field, bool isNew);

}  // namespace folvane
