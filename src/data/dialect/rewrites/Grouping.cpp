// Group By and Distinct make one of texts that differ in case or trailing blanks alone.

#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {

bool IsSame(const Expression& a, const Expression& b) {
  if (a.kind == Expression::Group || b.kind == Expression::Group) return IsSame(Bare(a), Bare(b));
  if (a.kind == Expression::Name && a.column && a.column == b.column) return b.kind == Expression::Name;
  if (a.kind != b.kind || a.query || b.query || a.parts.size() != b.parts.size()) return false;
  if (a.text.compare(b.text, Qt::CaseInsensitive) != 0 || a.style != b.style || a.size != b.size) return false;
  for (std::size_t i = 0; i < a.parts.size(); ++i)
    if (!IsSame(*a.parts[i], *b.parts[i])) return false;
  return true;
}

bool IsAggregate(const Expression& value) {
  static const QStringList names{QStringLiteral("count"), QStringLiteral("sum"), QStringLiteral("avg"),
                                 QStringLiteral("min"), QStringLiteral("max")};
  return value.kind == Expression::Call && names.contains(value.text);
}

// Outside of aggregates a grouped text is one of those that it was made of.
void ChooseOne(ExpressionPtr& value, const Expression& group, const char* form) {
  if (IsAggregate(*value)) return;
  if (IsSame(*value, group)) {
    ExpressionPtr name = value;
    value = Native(form, {name}, ValueType::Text);
    value->text = Bare(*name).text;
    return;
  }
  for (ExpressionPtr& part : value->parts) ChooseOne(part, group, form);
}

QString NameOf(const SelectItem& item) {
  if (!item.alias.isEmpty()) return item.alias;
  const Expression& value = *item.value;
  return value.kind == Expression::Name || value.kind == Expression::Native ? value.text : QString();
}

}  // namespace

void PrepareGrouping(Query& query, RewriteContext& context) {
  const char* form = context.Dialect().groupedText;
  if (!*form) return;
  for (const ExpressionPtr& group : query.groupBy) {
    if (group->type != ValueType::Text) continue;
    const ExpressionPtr wanted = group;
    for (SelectItem& item : query.items) {
      ChooseOne(item.value, *wanted, form);
      if (item.alias.isEmpty() && item.value->kind == Expression::Native) item.alias = item.value->text;
    }
    if (query.having) ChooseOne(query.having, *wanted, form);
    for (OrderItem& item : query.orderBy) ChooseOne(item.value, *wanted, form);
  }
}

void RewriteGrouping(Query& query, RewriteContext& context) {
  for (ExpressionPtr& group : query.groupBy)
    if (group->type == ValueType::Text) group = Fold(group, context);
}

void RewriteDistinct(Query& query, RewriteContext& context) {
  const bool joinsDistinct = query.unionWord == "UNION" && context.Dialect().distinctByColumn;
  if (!query.distinct && !joinsDistinct) return;
  bool hasText = false;
  for (const SelectItem& item : query.items) hasText = hasText || item.value->type == ValueType::Text;
  if (!hasText) return;
  if (!context.Dialect().distinctByColumn) {
    for (const SelectItem& item : query.items) {
      if (item.value->kind == Expression::Star) return query.distinctOn.clear();
      query.distinctOn.push_back(item.value->type == ValueType::Text ? Fold(item.value, context) : item.value);
    }
    return;
  }
  for (SelectItem& item : query.items) {
    if (item.value->type != ValueType::Text) continue;
    item.alias = NameOf(item);
    item.value = Fold(item.value, context);
  }
}

}  // namespace folvane::sql
