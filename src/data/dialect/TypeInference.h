#pragma once

#include <functional>

#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

using TableLookup = std::function<const TableInfo*(const QString&)>;

/// The type that a column's values have in the language.
ValueType TypeOfColumn(int adoType);

/// The type of two values that meet: the stronger one.
ValueType Stronger(ValueType left, ValueType right);

/// Finds the columns behind the names of a statement and the types of its values. A name that is in no table is left as
/// it is: the database says what is wrong with it.
/// @throws DataError Untranslatable for a condition in the place of a value or a value in the place of a condition
void InferTypes(Statement& statement, const TableLookup& tables);

}  // namespace folvane::sql
