// Functions, by their table; each argument as the type that the function takes.

#include "data/dialect/Functions.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

ExpressionPtr Argument(const ExpressionPtr& part, char letter, RewriteContext& context) {
  switch (letter) {
    case 'T':
      return Coerce(part, ValueType::Text, context);
    case 'I':
      return Coerce(part, ValueType::Integer, context);
    case 'N':
      return part->type == ValueType::Text ? Coerce(part, ValueType::Float, context) : part;
    case 'D':
      return Coerce(part, ValueType::Date, context);
    default:
      return part;
  }
}

// IsNull and Coalesce give one type whatever they choose.
bool GivesOneType(const Function& function) {
  return function.resultRule != Function::OfType && function.least > 1 && function.arguments[0] == 'A';
}

// What Round and its like make of a whole number is one, also where the database's own function gives another type.
bool StaysWhole(const Function& function, ValueType type) {
  return function.resultRule == Function::OfFirst && function.arguments[0] == 'N' && type == ValueType::Integer;
}

ExpressionPtr NullIf(const ExpressionPtr& value, RewriteContext& context) {
  const ExpressionPtr equal = Compare(u"="_s, value->parts[0], value->parts[1], context);
  return Native("CASE WHEN $1 THEN NULL ELSE $2 END", {equal, value->parts[0]}, value->type);
}

}  // namespace

ExpressionPtr RewriteCall(ExpressionPtr value, RewriteContext& context) {
  if (IsDateFunction(value->text)) return RewriteDateCall(std::move(value), context);
  const Function* function = FindFunction(value->text, value->parts.size());
  if (!function) Refuse(u"函数“%1”"_s.arg(value->text));
  if (value->text == "nullif"_L1) return NullIf(value, context);
  if (function->least == 1 && function->most == 1 && function->arguments[0] == 'A')
    return RewriteAggregate(std::move(value), context);
  if (value->distinct) RejectSyntax(u"函数“%1”中的 Distinct"_s.arg(value->text));
  std::vector<ExpressionPtr> parts;
  for (std::size_t i = 0; i < value->parts.size(); ++i)
    parts.push_back(GivesOneType(*function) ? Coerce(value->parts[i], value->type, context)
                                            : Argument(value->parts[i], function->arguments[i], context));
  ExpressionPtr call = Native(function->Form(context.Dialect().kind), std::move(parts), value->type);
  if (!StaysWhole(*function, value->type)) return call;
  return Native(context.Dialect().numberToInteger, {call}, value->type);
}

ExpressionPtr RewriteDateCall(ExpressionPtr value, RewriteContext& context) {
  const bool isPart = value->text == "datepart"_L1;
  if (value->parts.size() != (isPart ? 2 : 3) || value->parts[0]->kind != Expression::Name)
    RejectSyntax(u"函数“%1”的参数不对"_s.arg(value->text));
  const char* form = DateFunctionForm(context.Dialect().kind, value->text, value->parts[0]->text);
  if (!form) Refuse(u"%1 的日期部分“%2”"_s.arg(value->text, value->parts[0]->text));
  const bool counts = value->text == "dateadd"_L1;
  std::vector<ExpressionPtr> parts{Argument(value->parts[1], counts ? 'I' : 'D', context)};
  if (!isPart) parts.push_back(Argument(value->parts[2], 'D', context));
  return Native(form, std::move(parts), value->type);
}

}  // namespace folvane::sql
