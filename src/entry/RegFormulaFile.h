#pragma once

#include <QString>

#include "data/Recordset.h"

namespace folvane {

/// RegIDFormula.Ini in the program's directory says for each table by which rule its registration numbers are made.
QString RegFormulaPath();

/// The number of a table's rule; 0, and the file is not looked at, when its records have no RegID.
/// @throws NumberError when the file does not give a number
int LoadRegFormula(const QString& table, const Recordset& records);

}  // namespace folvane
