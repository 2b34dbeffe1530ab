// Group By and Distinct make one of texts that differ in case or trailing blanks alone.

#include <algorithm>

#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

bool IsSameName(const Expression& a, const Expression& b) {
  const auto differ = [](const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) != 0;
  };
  // A table that is joined with itself has each column twice.
  if (!a.qualifier.isEmpty() && !b.qualifier.isEmpty() && differ(a.qualifier, b.qualifier)) return false;
  return a.column || b.column ? a.column == b.column : !differ(a.text, b.text);
}

bool IsSame(const Expression& a, const Expression& b) {
  if (a.kind == Expression::Name && b.kind == Expression::Name) return IsSameName(a, b);
  if (a.kind == Expression::Group || b.kind == Expression::Group) return IsSame(Bare(a), Bare(b));
  if (a.kind != b.kind || a.query || b.query || a.parts.size() != b.parts.size()) return false;
  if (a.text.compare(b.text, Qt::CaseInsensitive) != 0 || a.style != b.style || a.size != b.size) return false;
  for (std::size_t i = 0; i < a.parts.size(); ++i)
    if (!IsSame(*a.parts[i], *b.parts[i])) return false;
  return true;
}

bool IsAggregate(const Expression& value) {
  static const QStringList names{u"count"_s, u"sum"_s, u"avg"_s, u"min"_s, u"max"_s};
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

bool HasText(const Query& query) {
  for (const SelectItem& item : query.items)
    if (item.value->type == ValueType::Text) return true;
  return false;
}

// A column's collation tells its texts apart.
void CollateItems(Query& query, RewriteContext& context) {
  for (SelectItem& item : query.items) {
    if (item.value->type != ValueType::Text) continue;
    if (const ExpressionPtr name = NameOf(item)) item.alias = name->text;
    item.value = Fold(item.value, context);
  }
}

// Rows are told apart by other values than they show. What is no text goes by its position: a number that is written
// there would be taken for one.
void DistinguishItems(Query& query, RewriteContext& context) {
  for (const SelectItem& item : query.items) {
    if (item.value->kind == Expression::Star) return query.distinctOn.clear();
    const bool isText = item.value->type == ValueType::Text && !IsTextLiteral(*item.value);
    const QByteArray position = QByteArray::number(query.distinctOn.size() + 1);
    query.distinctOn.push_back(isText ? Fold(item.value, context) : Native(position, {}, item.value->type));
  }
}

// The same around a union, over the names of its columns.
void DistinguishUnion(Query& query, RewriteContext& context) {
  std::vector<ExpressionPtr> names;
  for (const SelectItem& item : query.items) {
    const ExpressionPtr name = NameOf(item);
    if (!name) return;
    names.push_back(name->type == ValueType::Text ? Fold(name, context) : name);
  }
  for (const Query* part = &query; part->next; part = part->next.get())
    if (part->unionWord != "UNION") return;
  for (Query* part = &query; part->next; part = part->next.get()) part->unionWord = "UNION ALL";
  query.distinctAround = std::move(names);
  query.wrapped = true;
}

}  // namespace

void PrepareGrouping(Query& query, RewriteContext& context) {
  const char* form = context.Dialect().groupedText;
  if (!*form) return;
  for (auto group = query.groupBy.begin(); group != query.groupBy.end(); ++group) {
    const ExpressionPtr wanted = *group;
    const bool isKnown = std::any_of(query.groupBy.begin(), group,
                                     [&](const ExpressionPtr& before) { return IsSame(*before, *wanted); });
    if (wanted->type != ValueType::Text || isKnown) continue;
    for (SelectItem& item : query.items) {
      ChooseOne(item.value, *wanted, form);
      if (item.alias.isEmpty() && item.value->kind == Expression::Native) item.alias = item.value->text;
    }
    if (query.having) ChooseOne(query.having, *wanted, form);
    for (OrderTerm& item : query.orderBy) ChooseOne(item.value, *wanted, form);
  }
}

void RewriteGrouping(Query& query, RewriteContext& context) {
  for (ExpressionPtr& group : query.groupBy)
    if (group->type == ValueType::Text) group = Fold(group, context);
}

void RewriteDistinct(Query& query, RewriteContext& context) {
  const bool unites = query.unionWord == "UNION";
  if ((!query.distinct && !unites) || !HasText(query)) return;
  if (context.Dialect().distinctByColumn)
    CollateItems(query, context);
  else if (unites)
    DistinguishUnion(query, context);
  else
    DistinguishItems(query, context);
}

}  // namespace folvane::sql
