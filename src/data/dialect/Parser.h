#pragma once

#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// Reads one statement: Select, Insert, Update, Delete or "If c Select a Else Select b".
/// @throws DataError Untranslatable naming what cannot be read: stacked statements, other kinds, unknown forms
Statement Parse(const QString& statement);

}  // namespace folvane::sql
