// Like, with its classes, its disregard of case and its disregard of the value's trailing blanks.

#include "data/dialect/LikePatterns.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

// Blanks at the end of a pattern, and a last sign that may be one, count against the value's own: the plain Like of the
// databases cannot tell.
bool NeedsMatcher(const Expression& pattern, const RewriteContext& context) {
  return context.Has(pattern, Literal::HasClass) || context.Has(pattern, Literal::EndsAnywhere);
}

ExpressionPtr ByTraits(const ExpressionPtr& text, const Expression& pattern, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  if (NeedsMatcher(pattern, context))
    return Native(dialect.likeClass, {text, Transformed(pattern, dialect.classPattern, ValueType::Text)},
                  ValueType::Condition);
  return Native(context.Has(pattern, Literal::EndsOpen) ? dialect.like : dialect.likeTrimmed,
                {text, Transformed(pattern, Transform::Pattern, ValueType::Text)}, ValueType::Condition);
}

// An escape sign changes what the pattern says; both are rare enough to be read anew each time.
ExpressionPtr WithEscape(const ExpressionPtr& text, const Expression& pattern, const Expression& escape,
                         RewriteContext& context) {
  if (pattern.kind != Expression::Text || escape.kind != Expression::Text || context.Pin(escape).size() != 1)
    Refuse(u"Escape 前后不是文本常量"_s);
  const Dialect& dialect = context.Dialect();
  const QString written = context.Pin(pattern);
  if (*dialect.likeClassEscape)
    return Native(dialect.likeClassEscape, {text, Constant(written), Constant(escape.text)}, ValueType::Condition);
  return Native(dialect.likeClass, {text, Constant(RegexOf(ReadPattern(written, escape.text[0])))},
                ValueType::Condition);
}

}  // namespace

ExpressionPtr RewriteLike(ExpressionPtr value, RewriteContext& context) {
  const ExpressionPtr text = Coerce(value->parts[0], ValueType::Text, context);
  const Expression& pattern = Bare(*value->parts[1]);
  ExpressionPtr test;
  if (value->parts.size() > 2)
    test = WithEscape(text, pattern, Bare(*value->parts[2]), context);
  else if (pattern.kind == Expression::Text && context.Has(pattern, Literal::IsPattern))
    test = ByTraits(text, pattern, context);
  else
    test = Native(context.Dialect().likeValue, {text, Coerce(value->parts[1], ValueType::Text, context)},
                  ValueType::Condition);
  return value->negated ? Native("(NOT $1)", {test}, ValueType::Condition) : test;
}

}  // namespace folvane::sql
