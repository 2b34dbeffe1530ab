// Insert and Update: a value becomes one of its column's type on the way.

#include "data/dialect/TypeInference.h"
#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {

ExpressionPtr Stored(const ExpressionPtr& value, const ColumnInfo* column, RewriteContext& context) {
  if (!column || value->type == ValueType::Null || value->type == ValueType::Unknown) return value;
  const Dialect& dialect = context.Dialect();
  const ValueType type = TypeOfColumn(column->type);
  if (type == ValueType::Text) {
    const Expression::Kind kind = Bare(*value).kind;
    if (kind == Expression::Text || kind == Expression::Number) {
      ExpressionPtr literal = Transformed(*value, Transform::Stored, type);
      literal->column = column;
      return literal;
    }
  }
  ExpressionPtr stored = Coerce(value, type, context);
  if (type == ValueType::Integer && (stored->type == ValueType::Decimal || stored->type == ValueType::Float))
    stored = Native(dialect.numberToInteger, {stored}, type);
  if (column->type == AdoType::Boolean && *dialect.integerToBit) stored = Native(dialect.integerToBit, {stored}, type);
  return stored;
}

// Without a list of columns the values stand for all that the database does not number itself, or for all.
void NameColumns(Statement& statement, std::size_t values) {
  const TableInfo* table = statement.target.info;
  if (!table || (!statement.assignments.empty() && !statement.assignments[0].column.isEmpty())) return;
  std::vector<const ColumnInfo*> columns;
  for (const ColumnInfo& column : table->columns)
    if (!column.autoNumber || values == table->columns.size()) columns.push_back(&column);
  if (columns.size() != values) return;
  statement.assignments.resize(values);
  for (std::size_t i = 0; i < values; ++i) {
    statement.assignments[i].column = columns[i]->name;
    statement.assignments[i].info = columns[i];
  }
}

bool HasStar(const Query& query) {
  for (const SelectItem& item : query.items)
    if (item.value->kind == Expression::Star) return true;
  return false;
}

}  // namespace

void RewriteAssignments(Statement& statement, RewriteContext& context) {
  if (!statement.query) {
    if (statement.kind == Statement::Insert) NameColumns(statement, statement.assignments.size());
    for (Assignment& assignment : statement.assignments)
      assignment.value = Stored(assignment.value, assignment.info, context);
    return;
  }
  if (!HasStar(*statement.query)) NameColumns(statement, statement.query->items.size());
  for (Query* query = statement.query.get(); query && !HasStar(*query); query = query->next.get())
    for (std::size_t i = 0; i < query->items.size() && i < statement.assignments.size(); ++i)
      query->items[i].value = Stored(query->items[i].value, statement.assignments[i].info, context);
}

}  // namespace folvane::sql
