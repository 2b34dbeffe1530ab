#pragma once

#include <QString>
#include <optional>

#include "data/Recordset.h"

namespace folvane {

/// RegIDFormula.Ini in the program's directory says for each table by which rule its registration numbers are made.
QString RegFormulaPath();

/// The number of a table's rule; 0, and the file is not looked at, when its records have no RegID.
/// @throws NumberError when the file does not give a number
int LoadRegFormula(const QString& table, const Recordset& records);

/// The number that the file gives a table, without adding the table to it; none where it says nothing.
/// @throws FileError, NumberError
std::optional<int> StoredRegFormula(const QString& table);
/// Writes the number of a table's rule. @throws FileError
void StoreRegFormula(const QString& table, int formula);

}  // namespace folvane
