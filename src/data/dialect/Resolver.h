#pragma once

#include <functional>

#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

using TableLookup = std::function<const TableInfo*(const QString&)>;

/// The tables that a name may come from, and those around them.
struct Scope {
  std::vector<const TableReference*> tables;
  const Scope* outer = nullptr;
};

/// Finds the columns behind the names of a statement and the types of its values. A name that is in no table is left as
/// it is: the database says what is wrong with it.
void Resolve(Statement& statement, const TableLookup& tables);

/// A value's type once its names are resolved; nothing for a condition or an unknown one.
inline std::optional<TypeGroup> TypeOf(const Expression& value) { return value.type; }

}  // namespace folvane::sql
