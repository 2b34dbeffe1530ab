// Plus on texts joins them; a number beside a text makes a number of it; whole numbers divide to whole numbers.

#include "data/dialect/Refusal.h"
#include "data/dialect/TypeInference.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

ExpressionPtr RewriteDateSum(const ExpressionPtr& value, RewriteContext& context) {
  const ExpressionPtr &left = value->parts[0], &right = value->parts[1];
  if (value->text == "+"_L1 && IsNumeric(right->type))
    return Native(context.Dialect().addDays, {left, right}, ValueType::Date);
  if (value->text == "+"_L1 && IsNumeric(left->type))
    return Native(context.Dialect().addDays, {right, left}, ValueType::Date);
  if (value->text == "-"_L1 && IsNumeric(right->type))
    return Native(context.Dialect().addDays, {left, Native("(- $1)", {right}, right->type)}, ValueType::Date);
  Refuse(u"日期的运算“%1”，请用 DateAdd、DateDiff 或 Convert"_s.arg(value->text));
}

const char* FormOf(const QString& op, const Dialect& dialect) {
  if (op == "+"_L1) return "($1 + $2)";
  if (op == "-"_L1) return "($1 - $2)";
  if (op == "*"_L1) return "($1 * $2)";
  return op == "/"_L1 ? dialect.divide : dialect.modulo;
}

ExpressionPtr RewriteSum(const ExpressionPtr& value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  const ExpressionPtr &left = value->parts[0], &right = value->parts[1];
  const ValueType type = Stronger(left->type, right->type);
  if (type == ValueType::Date) return RewriteDateSum(value, context);
  if (type == ValueType::Text && value->text == "+"_L1) return Native(dialect.concat, {left, right}, ValueType::Text);
  if (type == ValueType::Text) RejectSyntax(u"文本不能作运算“%1”"_s.arg(value->text));
  ExpressionPtr first = Coerce(left, type, context);
  // A decimal without a fraction may lie in the database as a whole number, which would divide to a whole one.
  if (value->text == "/"_L1 && type != ValueType::Integer) first = Native("($1 + 0.0)", {first}, type);
  return Native(FormOf(value->text, dialect), {first, Coerce(right, type, context)}, type);
}

}  // namespace

ExpressionPtr RewriteUnary(ExpressionPtr value, RewriteContext& context) {
  if (value->type == ValueType::Condition) return value;
  if (value->type == ValueType::Text)
    value = Native(value->text == "-"_L1 ? "(- $1)" : "$1", {Coerce(value->parts[0], ValueType::Integer, context)},
                   ValueType::Integer);
  return value;
}

ExpressionPtr RewriteBinary(ExpressionPtr value, RewriteContext& context) {
  if (value->text[0].isLetter()) return value;  // And, Or
  if (value->type == ValueType::Condition) return Compare(value->text, value->parts[0], value->parts[1], context);
  return RewriteSum(value, context);
}

}  // namespace folvane::sql
