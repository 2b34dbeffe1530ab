// Comparisons: =, <>, <, <=, >, >= and Between.

#include "data/dialect/Refusal.h"
#include "data/dialect/TypeInference.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

ExpressionPtr WithOperator(const char* form, const QString& op, const ExpressionPtr& left, const ExpressionPtr& right) {
  ExpressionPtr test = Native(form, {left, right}, ValueType::Condition);
  test->form.replace("$o", op.toLatin1());
  return test;
}

ExpressionPtr Plainly(const QString& op, const ExpressionPtr& left, const ExpressionPtr& right) {
  return WithOperator("($1 $o $2)", op, left, right);
}

// The operator seen from the other side.
QString Mirrored(const QString& op) {
  if (op == "<"_L1) return u">"_s;
  if (op == "<="_L1) return u">="_s;
  if (op == ">"_L1) return u"<"_s;
  if (op == ">="_L1) return u"<="_s;
  return op;
}

ExpressionPtr ByForms(const LiteralForms& forms, const QString& op, const ExpressionPtr& value,
                      const Expression& literal, ValueType type) {
  const char* form = forms.Of(op);
  if (!form) return nullptr;
  const int limit = value->column && value->column->type != AdoType::Char ? value->column->definedSize : 0;
  return Native(form,
                {value, Transformed(literal, forms.transforms[0], type, limit),
                 Transformed(literal, forms.transforms[1], type, limit)},
                ValueType::Condition);
}

// A column and a text without letters, by an index of the column.
ExpressionPtr CompareWithPlainText(const QString& op, const ExpressionPtr& column, const ExpressionPtr& literal,
                                   RewriteContext& context) {
  const Expression& bare = Bare(*literal);
  if (column->kind != Expression::Name || !column->column || bare.kind != Expression::Text ||
      !context.Has(bare, Literal::Plain))
    return nullptr;
  const Dialect& dialect = context.Dialect();
  const bool isKey = (column->isKey || context.Has(bare, Literal::Long)) && !dialect.plainKey.IsEmpty();
  return ByForms(isKey ? dialect.plainKey : dialect.plainText, op, column, bare, ValueType::Text);
}

ExpressionPtr CompareTexts(const QString& op, const ExpressionPtr& left, const ExpressionPtr& right,
                           RewriteContext& context) {
  if (ExpressionPtr test = CompareWithPlainText(op, left, right, context)) return test;
  if (ExpressionPtr test = CompareWithPlainText(Mirrored(op), right, left, context)) return test;
  const Dialect& dialect = context.Dialect();
  if (!dialect.foldsLiterals) return WithOperator(dialect.compareText, op, left, right);
  return WithOperator(dialect.compareText, op, Fold(left, context), Fold(right, context));
}

ExpressionPtr CompareDates(const QString& op, const ExpressionPtr& left, const ExpressionPtr& right,
                           RewriteContext& context) {
  const LiteralForms& forms = context.Dialect().date;
  if (!forms.IsEmpty() && IsTextLiteral(*right)) return ByForms(forms, op, left, *right, ValueType::Date);
  if (!forms.IsEmpty() && IsTextLiteral(*left)) return ByForms(forms, Mirrored(op), right, *left, ValueType::Date);
  return Plainly(op, Coerce(left, ValueType::Date, context), Coerce(right, ValueType::Date, context));
}

}  // namespace

ExpressionPtr Compare(const QString& op, const ExpressionPtr& left, const ExpressionPtr& right,
                      RewriteContext& context) {
  const ValueType type = Stronger(left->type, right->type);
  const bool unknown = left->type == ValueType::Unknown || right->type == ValueType::Unknown;
  if (left->type == ValueType::Null || right->type == ValueType::Null) return Plainly(op, left, right);
  if (unknown && type == ValueType::Text) return WithOperator(context.Dialect().compareUnknown, op, left, right);
  if (unknown) return Plainly(op, left, right);
  if (type == ValueType::Text && left->type == right->type) return CompareTexts(op, left, right, context);
  if (type == ValueType::Date) return CompareDates(op, left, right, context);
  return Plainly(op, Coerce(left, type, context), Coerce(right, type, context));
}

ExpressionPtr RewriteBetween(ExpressionPtr value, RewriteContext& context) {
  const ExpressionPtr low = Compare(u">="_s, value->parts[0], value->parts[1], context);
  const ExpressionPtr high = Compare(u"<="_s, value->parts[0], value->parts[2], context);
  return Native(value->negated ? "(NOT ($1 AND $2))" : "($1 AND $2)", {low, high}, ValueType::Condition);
}

}  // namespace folvane::sql
