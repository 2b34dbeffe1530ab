// Order By: texts without regard to case, nulls before everything else.

#include <algorithm>

#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

// The item of the select list that an ordinal or an alias means; nullptr for any other expression.
const SelectItem* ItemOf(const Expression& value, const Query& query, bool* isOrdinal, RewriteContext& context) {
  *isOrdinal = value.kind == Expression::Number;
  if (*isOrdinal) {
    const int ordinal = context.Pin(value).toInt();
    for (int i = 0; i < ordinal && i < int(query.items.size()); ++i)
      if (query.items[size_t(i)].value->kind == Expression::Star) return nullptr;
    return ordinal >= 1 && ordinal <= int(query.items.size()) ? &query.items[size_t(ordinal) - 1] : nullptr;
  }
  if (value.kind != Expression::Name || !value.qualifier.isEmpty()) return nullptr;
  for (const SelectItem& item : query.items)
    if (item.alias.compare(value.text, Qt::CaseInsensitive) == 0) return &item;
  return nullptr;
}

ExpressionPtr Ordinal(const Expression& value) {
  return Native(value.text.toLatin1().constData(), {}, ValueType::Unknown);
}

// Where rows are told apart by the very values that they are ordered by, their comparison's own order has to do.
ExpressionPtr Ordered(const ExpressionPtr& value, const Query& query, RewriteContext& context) {
  if (query.distinct || query.next) return Fold(value, context);
  if (context.OrderCollation().isEmpty())
    return query.groupBy.empty() ? Native(context.Dialect().sortedBy, {value}, ValueType::Text) : Fold(value, context);
  const QByteArray form = "$1 COLLATE \"" + context.OrderCollation() + '"';
  return Native(form.constData(), {Fold(value, context)}, ValueType::Text);
}

// Where a join keeps rows that have no partner, the other table's columns are null whatever they are declared as.
bool HasOuterJoin(const Query& query) {
  return std::any_of(query.tables.begin(), query.tables.end(), [](const TableReference& table) {
    return table.join.contains("LEFT"_L1) || table.join.contains("RIGHT"_L1) || table.join.contains("FULL"_L1);
  });
}

// PostgreSQL names a selected expression by itself, after a column in it at times: the bare name of that column could
// then be either.
void QualifyBesideUnnamed(Expression& value, const Query& query) {
  const auto isUnnamed = [](const SelectItem& item) { return !NameOf(item) && item.value->kind != Expression::Star; };
  if (value.kind != Expression::Name || !value.column || !value.qualifier.isEmpty() || query.next ||
      std::none_of(query.items.begin(), query.items.end(), isUnnamed))
    return;
  for (const TableReference& table : query.tables) {
    if (!table.info || table.info->columns.empty()) continue;
    const ColumnInfo *first = table.info->columns.data(), *last = first + table.info->columns.size();
    if (value.column >= first && value.column < last)
      value.qualifier = table.alias.isEmpty() ? table.name : table.alias;
  }
}

void Order(OrderTerm& item, const Query& query, RewriteContext& context) {
  const Dialect& dialect = context.Dialect();
  bool isOrdinal = false;
  const SelectItem* selected = ItemOf(*item.value, query, &isOrdinal, context);
  if (!selected) QualifyBesideUnnamed(*item.value, query);
  const ExpressionPtr shown = selected ? selected->value : item.value;
  const bool neverNull = shown->kind == Expression::Name && shown->column && !HasOuterJoin(query) &&
                         (shown->isKey || !shown->column->nullable);
  if (!neverNull) item.nulls = item.descending ? dialect.nullsLast : dialect.nullsFirst;
  if (shown->type != ValueType::Text || shown->isKey || (selected && !query.next && IsTextLiteral(*shown))) {
    // None of them needs folding, and a key's own order is that of its index.
    if (isOrdinal) item.value = Ordinal(*item.value);
    return;
  }
  if (isOrdinal && !selected) item.value = Ordinal(*item.value);
  if (dialect.distinctByColumn && (selected || query.next)) {
    // The collation fits a column's number.
    item.value = Ordered(isOrdinal ? Ordinal(*item.value) : item.value, query, context);
    return;
  }
  item.value = Ordered(shown, query, context);
}

// The order of a union stands around it, over its columns' names.
void OrderUnion(OrderTerm& item, const Query& query, RewriteContext& context) {
  item.nulls = item.descending ? context.Dialect().nullsLast : context.Dialect().nullsFirst;
  if (item.value->kind == Expression::Number) {
    const auto ordinal = size_t(context.Pin(*item.value).toInt());
    const ExpressionPtr name =
        ordinal >= 1 && ordinal <= query.items.size() ? NameOf(query.items[ordinal - 1]) : nullptr;
    item.value = name ? name : Ordinal(*item.value);
  }
  if (item.value->type == ValueType::Text) item.value = Fold(item.value, context);
}

}  // namespace

void RewriteOrder(Query& query, RewriteContext& context) {
  const bool aroundUnion = query.next && context.Dialect().ordersUnionsByName && !query.orderBy.empty();
  if (aroundUnion) query.wrapped = true;
  for (OrderTerm& item : query.orderBy) aroundUnion ? OrderUnion(item, query, context) : Order(item, query, context);
}

}  // namespace folvane::sql
