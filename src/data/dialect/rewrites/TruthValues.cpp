// The language knows no truth values as values: a bit is a number.

#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

ExpressionPtr RewriteName(ExpressionPtr value, RewriteContext& context) {
  const bool isBit = value->column && value->column->type == AdoType::Boolean;
  if (!isBit || !*context.Dialect().bitToInteger) return value;
  return Native(context.Dialect().bitToInteger, {value}, ValueType::Integer);
}

}  // namespace folvane::sql
