// Case, and the functions that choose among values as it does: all of them come out as one type.

#include "data/dialect/TypeInference.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {
using namespace Qt::Literals::StringLiterals;

ExpressionPtr RewriteCase(ExpressionPtr value, RewriteContext& context) {
  ExpressionPtr chosen = MakeExpression(Expression::Case);
  chosen->type = value->type;
  chosen->hasElse = value->hasElse;
  const std::size_t first = value->hasOperand ? 1 : 0, end = value->parts.size() - (value->hasElse ? 1 : 0);
  for (std::size_t i = first; i + 1 < end; i += 2) {
    chosen->parts.push_back(value->hasOperand ? Compare(u"="_s, value->parts[0], value->parts[i], context)
                                              : value->parts[i]);
    chosen->parts.push_back(Coerce(value->parts[i + 1], value->type, context));
  }
  if (value->hasElse) chosen->parts.push_back(Coerce(value->parts.back(), value->type, context));
  return chosen;
}

}  // namespace folvane::sql
