#include "data/dialect/Resolver.h"

#include "data/dialect/Functions.h"

namespace folvane::sql {

namespace {

class Resolver {
 public:
  explicit Resolver(const TableLookup& tables) : lookup_(tables) {}

  void Read(Statement& statement) {
    Scope scope;
    if (statement.kind == Statement::Insert || statement.kind == Statement::Update ||
        statement.kind == Statement::Delete) {
      statement.target.info = lookup_(statement.target.name);
      if (statement.kind != Statement::Insert) scope.tables.push_back(&statement.target);
    }
    for (Assignment& assignment : statement.assignments) Read(*assignment.value, scope);
    if (statement.where) Read(*statement.where, scope);
    if (statement.condition) Read(*statement.condition, scope);
    for (QueryPtr* query : {&statement.query, &statement.then, &statement.otherwise})
      if (*query) Read(**query, nullptr);
  }

 private:
  void Read(Query& query, const Scope* outer) {
    Scope scope;
    scope.outer = outer;
    for (TableReference& table : query.tables) {
      if (table.query)
        Read(*table.query, outer);
      else
        table.info = lookup_(table.name);
      scope.tables.push_back(&table);
    }
    for (TableReference& table : query.tables)
      if (table.on) Read(*table.on, scope);
    if (query.top) Read(*query.top, scope);
    for (SelectItem& item : query.items) Read(*item.value, scope);
    for (ExpressionPtr* part : {&query.where, &query.having})
      if (*part) Read(**part, scope);
    for (ExpressionPtr& group : query.groupBy) Read(*group, scope);
    for (OrderItem& item : query.orderBy) Read(*item.value, scope);
    if (query.next) Read(*query.next, outer);
  }

  void Read(Expression& value, const Scope& scope) {
    for (ExpressionPtr& part : value.parts) Read(*part, scope);
    if (value.query) Read(*value.query, &scope);
    FindType(value, scope);
  }

  void FindType(Expression& value, const Scope& scope) {
    switch (value.kind) {
      case Expression::Name:
        return FindColumn(value, scope);
      case Expression::Text:
        value.type = TypeGroup::Text;
        break;
      case Expression::Number:
        value.type = TypeGroup::Number;
        break;
      case Expression::Unary:
        if (value.text != QLatin1String("NOT")) value.type = TypeGroup::Number;
        break;
      case Expression::Binary:
        value.type = TypeOfOperator(value);
        break;
      case Expression::Group:
        value.type = value.parts[0]->type;
        break;
      case Expression::Call: {
        const Function* function = FindFunction(value.text, static_cast<int>(value.parts.size()));
        if (function) value.type = function->result ? function->result : FirstType(value, 0, 1);
        if (value.text == QLatin1String("dateadd")) value.type = TypeGroup::Date;
        if (value.text == QLatin1String("datediff") || value.text == QLatin1String("datepart"))
          value.type = TypeGroup::Number;
        break;
      }
      case Expression::Case:
        value.type = FirstType(value, value.hasOperand ? 2 : 1, 2);
        if (!value.type && value.hasElse) value.type = value.parts.back()->type;
        break;
      case Expression::Cast:
        value.type = GroupOfTypeWord(value.text);
        break;
      case Expression::Subquery:
        if (value.query->items.size() == 1) value.type = value.query->items[0].value->type;
        break;
      default:
        break;
    }
  }

  static std::optional<TypeGroup> FirstType(const Expression& value, std::size_t from, std::size_t step) {
    for (std::size_t i = from; i < value.parts.size(); i += step)
      if (value.parts[i]->type) return value.parts[i]->type;
    return std::nullopt;
  }

  // A number beside a text wins, as everywhere in the language.
  static std::optional<TypeGroup> TypeOfOperator(const Expression& value) {
    if (QStringLiteral("+-*/%").contains(value.text) == false) return std::nullopt;
    const auto left = value.parts[0]->type, right = value.parts[1]->type;
    if (value.text != QLatin1String("+")) return TypeGroup::Number;
    if (left == TypeGroup::Number || right == TypeGroup::Number) return TypeGroup::Number;
    if (left == TypeGroup::Date || right == TypeGroup::Date) return TypeGroup::Date;
    if (left == TypeGroup::Text || right == TypeGroup::Text) return TypeGroup::Text;
    return std::nullopt;
  }

  static bool IsNamed(const TableReference& table, const QString& name) {
    const QString& known = table.alias.isEmpty() ? table.name : table.alias;
    return known.compare(name, Qt::CaseInsensitive) == 0;
  }

  static void FindColumn(Expression& value, const Scope& innermost) {
    for (const Scope* scope = &innermost; scope; scope = scope->outer)
      for (const TableReference* table : scope->tables) {
        if (!value.qualifier.isEmpty() && !IsNamed(*table, value.qualifier)) continue;
        if (table->query && FindInQuery(value, *table->query)) return;
        if (!table->info) continue;
        const int index = table->info->IndexOf(value.text);
        if (index < 0) continue;
        value.column = &table->info->columns[static_cast<std::size_t>(index)];
        value.type = GroupOfType(value.column->type);
        value.isKey = table->info->key.size() == 1 && table->info->key[0] == index;
        return;
      }
  }

  static bool FindInQuery(Expression& value, const Query& query) {
    for (const SelectItem& item : query.items) {
      const QString& name = item.alias.isEmpty() ? item.value->text : item.alias;
      if (name.compare(value.text, Qt::CaseInsensitive) != 0) continue;
      value.type = item.value->type;
      return true;
    }
    return false;
  }

  const TableLookup& lookup_;
};

}  // namespace

void Resolve(Statement& statement, const TableLookup& tables) { Resolver(tables).Read(statement); }

}  // namespace folvane::sql
