// Count, Sum, Avg, Min and Max.

#include "data/dialect/Functions.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

const char* FormOf(const Expression& value, const Function& function, const Dialect& dialect) {
  const Expression& part = *value.parts[0];
  if (part.type == ValueType::Text && !part.isKey && !IsTextLiteral(part)) {
    if (value.text == "min"_L1) return dialect.leastText;
    if (value.text == "max"_L1) return dialect.greatestText;
  }
  if (part.type == ValueType::Integer) {
    if (value.text == "sum"_L1) return dialect.sumOfIntegers;
    if (value.text == "avg"_L1) return dialect.averageOfIntegers;
  }
  return function.Form(dialect.kind);
}

}  // namespace

ExpressionPtr RewriteAggregate(ExpressionPtr value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  const Function& function = *FindFunction(value->text, 1);
  const ExpressionPtr& part = value->parts[0];
  const bool adds = value->text == "sum"_L1 || value->text == "avg"_L1;
  if (adds && (part->type == ValueType::Text || part->type == ValueType::Date))
    RejectSyntax(u"%1 只能用于数字"_s.arg(value->text));
  ExpressionPtr argument = part;
  if (value->distinct && part->type == ValueType::Text && value->text == "count"_L1)
    argument = Native(dialect.distinctText, {part}, ValueType::Text);
  ExpressionPtr call = Native(FormOf(*value, function, dialect), {argument}, value->type);
  if (value->distinct) call->form.replace("$*", "DISTINCT $*");
  return call;
}

}  // namespace folvane::sql
