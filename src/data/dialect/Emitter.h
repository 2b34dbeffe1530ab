#pragma once

#include <QByteArray>
#include <vector>

#include "data/dialect/Dialect.h"
#include "data/dialect/Literals.h"
#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

/// A statement in a dialect, for every statement of its template. Where the dialect binds literals, the text has the
/// marker ?n for the nth slot; where not, the literals are put in at the slots.
struct Translation {
  QByteArray text;
  std::vector<Slot> slots;
};

/// Writes a rewritten statement in a dialect.
Translation Emit(const Statement& statement, const Dialect& dialect);
Translation Emit(const Query& query, const Dialect& dialect);
/// A query of one row: 1 when the condition is true, otherwise 0.
Translation EmitCondition(const Expression& condition, const Dialect& dialect);

}  // namespace folvane::sql
