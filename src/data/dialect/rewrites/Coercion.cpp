#include "data/dialect/rewrites/Coercion.h"

#include "data/dialect/Refusal.h"

namespace folvane::sql {
using namespace Qt::Literals::StringLiterals;

bool RewriteContext::Has(const Expression& literal, Literal::Trait trait) const {
  const auto index = size_t(literal.literal);
  return literal.literal >= 0 && index < literals_.size() && literals_[index].Has(trait);
}

const QString& RewriteContext::Pin(const Expression& literal) {
  pinned_.push_back(literal.literal);
  return literal.text;
}

ExpressionPtr Native(const char* form, std::vector<ExpressionPtr> parts, ValueType type) {
  ExpressionPtr value = MakeExpression(Expression::Native);
  value->form = form;
  value->parts = std::move(parts);
  value->type = type;
  return value;
}

ExpressionPtr Constant(const QString& text) {
  ExpressionPtr value = MakeExpression(Expression::Constant);
  value->text = text;
  value->type = ValueType::Text;
  return value;
}

ExpressionPtr NameOf(const SelectItem& item) {
  const bool isName = item.value->kind == Expression::Name;
  if (item.alias.isEmpty() && !isName) return nullptr;
  ExpressionPtr name = MakeExpression(Expression::Name);
  name->text = item.alias.isEmpty() ? item.value->text : item.alias;
  name->column = item.alias.isEmpty() ? item.value->column : nullptr;
  name->type = item.value->type;
  return name;
}

const Expression& Bare(const Expression& value) {
  return value.kind == Expression::Group ? Bare(*value.parts[0]) : value;
}

bool IsTextLiteral(const Expression& value) { return Bare(value).kind == Expression::Text; }

ExpressionPtr Transformed(const Expression& literal, Transform transform, ValueType type, int limit) {
  const Expression& bare = Bare(literal);
  ExpressionPtr value = MakeExpression(bare.kind);
  value->text = bare.text;
  value->literal = bare.literal;
  value->transform = transform;
  value->limit = limit;
  value->type = type;
  return value;
}

namespace {

ExpressionPtr CoerceLiteral(const ExpressionPtr& value, ValueType type) {
  switch (type) {
    case ValueType::Integer:
      return Transformed(*value, Transform::Integer, type);
    case ValueType::Decimal:
      return Transformed(*value, Transform::Decimal, type);
    case ValueType::Float:
      return Transformed(*value, Transform::Float, type);
    case ValueType::Date:
      return Transformed(*value, Transform::Date, type);
    default:
      return value;
  }
}

const char* FormFromText(ValueType type, const Dialect& dialect) {
  switch (type) {
    case ValueType::Integer:
      return dialect.textToInteger;
    case ValueType::Decimal:
      return dialect.textToDecimal;
    case ValueType::Float:
      return dialect.textToFloat;
    default:
      return dialect.textToDate;
  }
}

}  // namespace

ExpressionPtr Coerce(const ExpressionPtr& value, ValueType type, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  const ValueType from = value->type;
  const bool known = from == ValueType::Text || from == ValueType::Date || IsNumeric(from);
  const bool wanted = type == ValueType::Text || type == ValueType::Date || IsNumeric(type);
  if (!known || !wanted || from == type) return value;
  if (from == ValueType::Text)
    return IsTextLiteral(*value) ? CoerceLiteral(value, type) : Native(FormFromText(type, dialect), {value}, type);
  if (from == ValueType::Date) {
    if (type != ValueType::Text) Refuse(u"把日期当作数字"_s);
    return Native(dialect.dateToText, {value}, type);
  }
  if (IsNumeric(type)) return value;  // numbers meet as the database sees fit
  if (type == ValueType::Date) return Native(dialect.numberToDate, {value}, type);
  if (Bare(*value).kind == Expression::Number) return Transformed(*value, Transform::Text, type);
  return Native(dialect.numberToText, {value}, type);
}

ExpressionPtr Fold(const ExpressionPtr& value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  if (IsTextLiteral(*value) && dialect.foldsLiterals) return Transformed(*value, Transform::Folded, ValueType::Text);
  return Native(dialect.folded, {value}, ValueType::Text);
}

}  // namespace folvane::sql
