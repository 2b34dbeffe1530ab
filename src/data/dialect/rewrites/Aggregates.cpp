// Count, Sum, Avg, Min and Max.

#include "data/dialect/Functions.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {

const char* FormOf(const Expression& value, const Function& function, const Dialect& dialect) {
  const Expression& part = *value.parts[0];
  if (part.type == ValueType::Text && !part.isKey) {
    if (value.text == QLatin1String("min")) return dialect.leastText;
    if (value.text == QLatin1String("max")) return dialect.greatestText;
  }
  if (part.type == ValueType::Integer) {
    if (value.text == QLatin1String("sum")) return dialect.sumOfIntegers;
    if (value.text == QLatin1String("avg")) return dialect.averageOfIntegers;
  }
  return function.Form(dialect.kind);
}

}  // namespace

ExpressionPtr RewriteAggregate(ExpressionPtr value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  const Function& function = *FindFunction(value->text, 1);
  const ExpressionPtr& part = value->parts[0];
  const bool adds = value->text == QLatin1String("sum") || value->text == QLatin1String("avg");
  if (adds && (part->type == ValueType::Text || part->type == ValueType::Date))
    RejectSyntax(QStringLiteral("%1 只能用于数字").arg(value->text));
  ExpressionPtr argument = part;
  if (value->distinct && part->type == ValueType::Text && value->text == QLatin1String("count"))
    argument = Native(dialect.distinctText, {part}, ValueType::Text);
  ExpressionPtr call = Native(FormOf(*value, function, dialect), {argument}, value->type);
  if (value->distinct) call->form.replace("$*", "DISTINCT $*");
  return call;
}

}  // namespace folvane::sql
