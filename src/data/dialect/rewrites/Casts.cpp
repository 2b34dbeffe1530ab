// Cast and Convert.

#include "data/dialect/Functions.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kDefaultLength = 30, kDefaultPrecision = 18, kMoneyScale = 4;

ExpressionPtr Digits(int number) { return Native(QByteArray::number(number).constData(), {}, ValueType::Integer); }

const char* PatternOf(int style) {
  const char* pattern = DateStyle(style < 0 ? 0 : style);
  if (!pattern) Refuse(u"Convert 的样式 %1"_s.arg(style));
  return pattern;
}

ExpressionPtr DateAsText(const ExpressionPtr& date, int style, const Dialect& dialect) {
  const char* pattern = PatternOf(style);
  const bool isLong = style <= 0 || style == 100;
  return Native(isLong ? dialect.formatDateLong : dialect.formatDate, {date, Constant(QLatin1String(pattern))},
                ValueType::Text);
}

ExpressionPtr ToText(const Expression& value, const CastType& type, RewriteContext& context) {
  if (value.style > 0) PatternOf(value.style);
  const Dialect& dialect = context.Dialect();
  const ExpressionPtr& inner = value.parts[0];
  ExpressionPtr text = Coerce(inner, ValueType::Text, context);
  if (inner->type == ValueType::Date)
    text = DateAsText(inner, value.style, dialect);
  else if (inner->column && value.style > 0 && *dialect.formatDateInText)
    text = Native(dialect.formatDateInText, {text, Constant(QLatin1String(PatternOf(value.style)))}, ValueType::Text);
  if (value.size < 0 || type.trait == CastType::Unlimited) return text;
  const int size = value.size > 0 ? value.size : kDefaultLength;
  return Native(type.trait == CastType::Padded ? dialect.padText : dialect.cutText, {text, Digits(size)},
                ValueType::Text);
}

ExpressionPtr ToInteger(const Expression& value, const CastType& type, RewriteContext& context) {
  ExpressionPtr number = Coerce(value.parts[0], ValueType::Integer, context);
  if (number->type != ValueType::Integer && number->type != ValueType::Null)
    number = Native(context.Dialect().numberToInteger, {number}, ValueType::Integer);
  return type.trait == CastType::Bit ? Native(context.Dialect().toBit, {number}, ValueType::Integer) : number;
}

ExpressionPtr ToDecimal(const Expression& value, RewriteContext& context) {
  const bool isMoney = value.text == "money"_L1;
  const int precision = value.size > 0 ? value.size : kDefaultPrecision;
  const int scale = value.scale >= 0 ? value.scale : isMoney ? kMoneyScale : 0;
  return Native(context.Dialect().toDecimal,
                {Coerce(value.parts[0], ValueType::Decimal, context), Digits(precision), Digits(scale)},
                ValueType::Decimal);
}

// The styles under which the texts that are read here mean what they do without one.
bool ReadsAsUsual(int style) {
  return style < 0 || style == 0 || style == 20 || style == 21 || style == 23 || style == 101 || style == 102 ||
         style == 111 || style == 112 || style == 120 || style == 121;
}

}  // namespace

ExpressionPtr RewriteCast(ExpressionPtr value, RewriteContext& context) {
  const CastType* type = FindCastType(value->text);
  if (!type) Refuse(u"类型“%1”"_s.arg(value->text));
  switch (type->type) {
    case ValueType::Text:
      return ToText(*value, *type, context);
    case ValueType::Integer:
      return ToInteger(*value, *type, context);
    case ValueType::Decimal:
      return ToDecimal(*value, context);
    case ValueType::Float:
      return Native(context.Dialect().integerToFloat, {Coerce(value->parts[0], ValueType::Float, context)},
                    ValueType::Float);
    default:
      if (!ReadsAsUsual(value->style)) Refuse(u"Convert 的样式 %1"_s.arg(value->style));
      return Native("$1", {Coerce(value->parts[0], ValueType::Date, context)}, ValueType::Date);
  }
}

// The language knows no truth values as values: a bit is a number.
ExpressionPtr RewriteName(ExpressionPtr value, RewriteContext& context) {
  const bool isBit = value->column && value->column->type == AdoType::Boolean;
  if (!isBit || !*context.Dialect().bitToInteger) return value;
  return Native(context.Dialect().bitToInteger, {value}, ValueType::Integer);
}

}  // namespace folvane::sql
