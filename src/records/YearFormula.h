#pragma once

#include <QString>

namespace folvane {

/// The browse grouping of the tables: YearFormula.Ini in the program's directory says for each table by which field its
/// records hang under it in the class tree, "0" for none. A person may edit the file; it is written when it is missing.
QString YearFormulaPath();

/// The grouping field of a table, at most 19 bytes of it, or "0". A table the file does not know is added with 0.
QString ReadYearFormula(const QString& table);

/// Makes a field the grouping field of a table; "0" for none. @throws FileError
void WriteYearFormula(const QString& table, const QString& field);

/// The condition that a second-level node adds to the list of its table.
QString SecondLevelFilter(const QString& field, const QString& value);

/// The statement that gives the values of the second-level nodes, newest first.
QString SecondLevelStatement(const QString& table, const QString& field);

/// The condition for this year's records of a table with CreatedDate.
QString CurrentYearFilter();

}  // namespace folvane
