#include "data/dialect/Rewriter.h"

#include <QStringList>
#include <array>

#include "data/dialect/rewrites/Coercion.h"

namespace folvane::sql {

namespace {

struct Rule {
  Expression::Kind kind;
  Rewrite rewrite;
};

constexpr std::array kRules{
    Rule{Expression::Name, RewriteName},     Rule{Expression::Unary, RewriteUnary},
    Rule{Expression::Binary, RewriteBinary}, Rule{Expression::Like, RewriteLike},
    Rule{Expression::In, RewriteIn},         Rule{Expression::Between, RewriteBetween},
    Rule{Expression::Call, RewriteCall},     Rule{Expression::Case, RewriteCase},
    Rule{Expression::Cast, RewriteCast},
};

void RewriteQuery(Query& query, RewriteContext& context);

void RewriteParts(Expression& value, RewriteContext& context);

void RewriteOne(ExpressionPtr& value, RewriteContext& context) {
  RewriteParts(*value, context);
  for (const Rule& rule : kRules) {
    if (rule.kind != value->kind) continue;
    value = rule.rewrite(value, context);
    return;
  }
}

void RewriteParts(Expression& value, RewriteContext& context) {
  for (ExpressionPtr& part : value.parts) RewriteOne(part, context);
  if (value.query) RewriteQuery(*value.query, context);
  if (value.kind == Expression::Group) value.type = value.parts[0]->type;
}

void RewriteIfThere(ExpressionPtr& value, RewriteContext& context) {
  if (value) RewriteOne(value, context);
}

// The order of a union, and what tells its rows apart, may go by the names of its columns: each has one of its own.
void NameColumnsOfUnion(Query& query) {
  QStringList names;
  for (SelectItem& item : query.items) {
    if (item.value->kind == Expression::Star) return;
    const ExpressionPtr name = NameOf(item);
    const bool isOwn = name && !names.contains(name->text, Qt::CaseInsensitive);
    if (!isOwn) item.alias = QStringLiteral("column_%1").arg(names.size() + 1);
    names << (isOwn ? name->text : item.alias);
  }
}

void RewriteQuery(Query& query, RewriteContext& context) {
  PrepareGrouping(query, context);
  for (TableReference& table : query.tables) {
    if (table.query) RewriteQuery(*table.query, context);
    RewriteIfThere(table.on, context);
  }
  RewriteIfThere(query.top, context);
  for (SelectItem& item : query.items)
    if (item.value->kind != Expression::Name) RewriteOne(item.value, context);  // a selected column comes as it is
  RewriteIfThere(query.where, context);
  for (ExpressionPtr& group : query.groupBy) RewriteOne(group, context);
  RewriteIfThere(query.having, context);
  for (OrderTerm& item : query.orderBy) RewriteOne(item.value, context);
  if (query.next) RewriteQuery(*query.next, context);
  RewriteGrouping(query, context);
  if (query.next && context.Dialect().ordersUnionsByName) NameColumnsOfUnion(query);
  RewriteOrder(query, context);
  RewriteDistinct(query, context);
}

}  // namespace

void RewriteStatement(Statement& statement, RewriteContext& context) {
  for (Assignment& assignment : statement.assignments) RewriteIfThere(assignment.value, context);
  for (ExpressionPtr* condition : {&statement.where, &statement.condition}) RewriteIfThere(*condition, context);
  for (QueryPtr* query : {&statement.query, &statement.then, &statement.otherwise})
    if (*query) RewriteQuery(**query, context);
  if (statement.kind == Statement::Insert || statement.kind == Statement::Update)
    RewriteAssignments(statement, context);
}

}  // namespace folvane::sql
