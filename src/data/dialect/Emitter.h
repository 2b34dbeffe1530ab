#pragma once

#include <QString>
#include <vector>

#include "data/dialect/Literals.h"
#include "data/dialect/SyntaxTree.h"
#include "data/drivers/Driver.h"

namespace folvane::sql {

/// How a dialect says what the others say otherwise. In the forms %1, %2 stand for values already put into the dialect.
struct DialectWords {
  DialectKind kind;
  bool bindsLiterals;       ///< literals go as parameters, not as text
  const char* asText;       ///< a value as text
  const char* asNumber;     ///< a text as a number; an error when it is none
  const char* asDate;       ///< a text as a date
  const char* folded;       ///< a text column or expression as it is compared
  const char* grouped;      ///< a text as Distinct and Group By compare it
  const char* sorted;       ///< a text as Order By compares it
  const char* like;         ///< value, pattern without classes
  const char* likeClasses;  ///< value, pattern
  const char* dateText;     ///< a date under Like
  const char* nullsFirst;   ///< behind an ascending item of Order By
  const char* nullsLast;    ///< behind a descending one
};

const DialectWords& WordsOf(DialectKind kind);

/// Where a bound value comes from.
struct Binding {
  int literal;
  Transform transform;
  bool operator==(const Binding&) const = default;
};

/// A statement put together in a dialect.
struct Emitted {
  QString text;
  std::vector<Binding> bindings;  ///< of the markers ?1, ?2 ...
  bool cacheable = true;          ///< false when a literal's value stands in the text
};

Emitted EmitStatement(const Statement& statement, DialectKind dialect);
Emitted EmitQuery(const Query& query, DialectKind dialect);
/// A query of one row: 1 when the condition is true, otherwise 0.
Emitted EmitCondition(const Expression& condition, DialectKind dialect);

}  // namespace folvane::sql
