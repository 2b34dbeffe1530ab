// In with a list or a query.

#include "data/dialect/Refusal.h"
#include "data/dialect/TypeInference.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

bool AllKeys(const Expression& value, RewriteContext& context, bool needLong) {
  const Expression& subject = *value.parts[0];
  if (subject.kind != Expression::Name || !subject.column) return false;
  for (std::size_t i = 1; i < value.parts.size(); ++i) {
    const Expression& part = Bare(*value.parts[i]);
    if (part.kind != Expression::Text || !context.Has(part, Literal::Plain)) return false;
    if (needLong && !subject.isKey && !context.Has(part, Literal::Long)) return false;
  }
  return true;
}

ExpressionPtr ChainOfComparisons(const Expression& value, RewriteContext& context) {
  ExpressionPtr chain;
  for (std::size_t i = 1; i < value.parts.size(); ++i) {
    const ExpressionPtr test = Compare(u"="_s, value.parts[0], value.parts[i], context);
    chain = chain ? Native("$1 OR $2", {chain, test}, ValueType::Condition) : test;
  }
  return Native("($1)", {chain}, ValueType::Condition);
}

ExpressionPtr InTexts(const Expression& value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  std::vector<ExpressionPtr> parts = value.parts;
  if (*dialect.inKeys && AllKeys(value, context, true)) {
    const int limit = parts[0]->column->type == AdoType::Char ? 0 : parts[0]->column->definedSize;
    for (std::size_t i = 1; i < parts.size(); ++i)
      parts[i] = Transformed(*parts[i], Transform::Variants, ValueType::Text, limit);
    return Native(dialect.inKeys, std::move(parts), ValueType::Condition);
  }
  if (int(parts.size()) - 1 <= dialect.mostKeysApart && AllKeys(value, context, false))
    return ChainOfComparisons(value, context);
  if (dialect.foldsLiterals)
    for (ExpressionPtr& part : parts) part = Fold(part, context);
  return Native(dialect.inTexts, std::move(parts), ValueType::Condition);
}

ExpressionPtr InList(const Expression& value, RewriteContext& context) {
  ValueType type = ValueType::Unknown;
  bool allTexts = true, hasUnknown = false;
  for (const ExpressionPtr& part : value.parts) {
    type = Stronger(type, part->type);
    allTexts = allTexts && part->type == ValueType::Text;
    hasUnknown = hasUnknown || part->type == ValueType::Unknown;
  }
  if (allTexts) return InTexts(value, context);
  if (type == ValueType::Date && !context.Dialect().date.IsEmpty()) return ChainOfComparisons(value, context);
  if (type == ValueType::Text) return ChainOfComparisons(value, context);
  std::vector<ExpressionPtr> parts = value.parts;
  if (!hasUnknown)
    for (ExpressionPtr& part : parts) part = Coerce(part, type, context);
  return Native("($1 IN ($+))", std::move(parts), ValueType::Condition);
}

ExpressionPtr InQuery(Expression& value, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  Query& query = *value.query;
  if (query.items.size() != 1) RejectSyntax(u"In 的子查询应只有一列"_s);
  ExpressionPtr subject = value.parts[0];
  const ValueType type = Stronger(subject->type, query.items[0].value->type);
  const bool texts = subject->type == ValueType::Text && query.items[0].value->type == ValueType::Text;
  if (!texts && subject->type != ValueType::Unknown) subject = Coerce(subject, type, context);
  if (texts && dialect.foldsInQuery) subject = Fold(subject, context);
  for (Query* part = &query; part; part = part->next.get()) {
    ExpressionPtr& item = part->items[0].value;
    if (texts && dialect.foldsInQuery)
      item = Fold(item, context);
    else if (!texts && item->type != ValueType::Unknown && subject->type != ValueType::Unknown)
      item = Coerce(item, type, context);
  }
  ExpressionPtr test = Native(texts ? dialect.inQuery : "($1 IN ($q))", {subject}, ValueType::Condition);
  test->query = std::move(value.query);
  return test;
}

}  // namespace

ExpressionPtr RewriteIn(ExpressionPtr value, RewriteContext& context) {
  ExpressionPtr test = value->query ? InQuery(*value, context) : InList(*value, context);
  return value->negated ? Native("(NOT $1)", {test}, ValueType::Condition) : test;
}

}  // namespace folvane::sql
