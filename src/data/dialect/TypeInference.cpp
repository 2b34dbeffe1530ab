#include "data/dialect/TypeInference.h"

#include "data/dialect/Functions.h"
#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

// The tables that a name may come from, and those around them.
struct Scope {
  std::vector<const TableReference*> tables;
  const Scope* outer = nullptr;
};

bool IsSame(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

bool IsComparison(const QString& op) { return u"<>="_s.contains(op[0]); }

void NeedCondition(const Expression& value) {
  if (value.type != ValueType::Condition) RejectSyntax(u"应写条件的地方写了值"_s);
}

void NeedValue(const Expression& value) {
  if (value.type == ValueType::Condition) RejectSyntax(u"应写值的地方写了条件"_s);
}

class Inference {
 public:
  explicit Inference(const TableLookup& tables) : lookup_(tables) {}

  void Read(Statement& statement) {
    Scope scope;
    if (!statement.target.name.isEmpty()) {
      statement.target.info = lookup_(statement.target.name);
      if (statement.kind != Statement::Insert) scope.tables.push_back(&statement.target);
    }
    for (Assignment& assignment : statement.assignments) {
      FindTarget(statement, assignment);
      if (assignment.value) ReadValue(*assignment.value, scope);
    }
    for (ExpressionPtr* condition : {&statement.where, &statement.condition})
      if (*condition) ReadCondition(**condition, scope);
    for (QueryPtr* query : {&statement.query, &statement.then, &statement.otherwise})
      if (*query) Read(**query, nullptr);
  }

 private:
  static void FindTarget(const Statement& statement, Assignment& assignment) {
    const TableInfo* table = statement.target.info;
    const int index = table && !assignment.column.isEmpty() ? table->IndexOf(assignment.column) : -1;
    if (index >= 0) assignment.info = &table->columns[size_t(index)];
  }

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
      if (table.on) ReadCondition(*table.on, scope);
    if (query.top) ReadValue(*query.top, scope);
    for (SelectItem& item : query.items) ReadValue(*item.value, scope);
    for (ExpressionPtr* condition : {&query.where, &query.having})
      if (*condition) ReadCondition(**condition, scope);
    for (ExpressionPtr& group : query.groupBy) ReadValue(*group, scope);
    for (OrderTerm& item : query.orderBy) ReadValue(*item.value, scope);
    if (query.next) Read(*query.next, outer);
  }

  void ReadCondition(Expression& value, const Scope& scope) {
    Read(value, scope);
    NeedCondition(value);
  }

  void ReadValue(Expression& value, const Scope& scope) {
    Read(value, scope);
    NeedValue(value);
  }

  void Read(Expression& value, const Scope& scope) {
    for (ExpressionPtr& part : value.parts) Read(*part, scope);
    if (value.query) Read(*value.query, &scope);
    CheckParts(value);
    value.type = TypeOf(value, scope);
  }

  static void CheckParts(const Expression& value) {
    const bool joins = value.kind == Expression::Binary && value.text[0].isLetter();
    const bool negates = value.kind == Expression::Unary && value.text[0].isLetter();
    const std::size_t whens = value.kind == Expression::Case && !value.hasOperand ? value.parts.size() - 1 : 0;
    for (std::size_t i = 0; i < value.parts.size(); ++i) {
      if (joins || negates || (i < whens && i % 2 == 0))
        NeedCondition(*value.parts[i]);
      else if (value.kind != Expression::Group)
        NeedValue(*value.parts[i]);
    }
  }

  ValueType TypeOf(Expression& value, const Scope& scope) {
    switch (value.kind) {
      case Expression::Name:
        return FindColumn(value, scope);
      case Expression::Text:
      case Expression::Constant:
        return ValueType::Text;
      case Expression::Number:
        return value.text.contains(u'e', Qt::CaseInsensitive) ? ValueType::Float
               : value.text.contains(u'.')                    ? ValueType::Decimal
                                                              : ValueType::Integer;
      case Expression::Null:
        return ValueType::Null;
      case Expression::Unary:
        return value.text == "NOT"_L1 ? ValueType::Condition : value.parts[0]->type;
      case Expression::Binary:
        return IsComparison(value.text) || value.text[0].isLetter() ? ValueType::Condition : TypeOfSum(value);
      case Expression::Group:
        return value.parts[0]->type;
      case Expression::Call:
        return TypeOfCall(value);
      case Expression::Case:
        return TypeOfCase(value);
      case Expression::Cast: {
        const CastType* type = FindCastType(value.text);
        return type ? type->type : ValueType::Unknown;
      }
      case Expression::Subquery:
        return value.query->items.size() == 1 ? value.query->items[0].value->type : ValueType::Unknown;
      case Expression::Star:
      case Expression::Native:
        return value.type;
      default:
        return ValueType::Condition;
    }
  }

  static ValueType TypeOfSum(const Expression& value) { return Stronger(value.parts[0]->type, value.parts[1]->type); }

  static ValueType TypeOfCall(const Expression& value) {
    if (IsDateFunction(value.text)) return value.text == "dateadd"_L1 ? ValueType::Date : ValueType::Integer;
    const Function* function = FindFunction(value.text, value.parts.size());
    if (!function) return ValueType::Unknown;
    if (function->resultRule == Function::OfType) return function->result;
    ValueType type = value.parts[0]->type;
    if (function->arguments[0] == 'N' && type == ValueType::Text) return ValueType::Float;
    if (function->resultRule == Function::OfStrongest || type == ValueType::Null)
      for (const ExpressionPtr& part : value.parts) type = Stronger(type, part->type);
    return type;
  }

  static ValueType TypeOfCase(const Expression& value) {
    ValueType type = ValueType::Null;
    const std::size_t first = value.hasOperand ? 2 : 1, whens = value.parts.size() - (value.hasElse ? 1 : 0);
    for (std::size_t i = first; i < whens; i += 2) type = Stronger(type, value.parts[i]->type);
    return value.hasElse ? Stronger(type, value.parts.back()->type) : type;
  }

  ValueType FindColumn(Expression& value, const Scope& innermost) {
    for (const Scope* scope = &innermost; scope; scope = scope->outer)
      for (const TableReference* table : scope->tables) {
        const QString& name = table->alias.isEmpty() ? table->name : table->alias;
        if (!value.qualifier.isEmpty() && !IsSame(name, value.qualifier)) continue;
        if (table->query) {
          if (const Expression* found = FindInQuery(value.text, *table->query)) return found->type;
          continue;
        }
        const int index = table->info ? table->info->IndexOf(value.text) : -1;
        if (index < 0) continue;
        value.column = &table->info->columns[size_t(index)];
        value.isKey = table->info->key.size() == 1 && table->info->key[0] == index;
        return TypeOfColumn(value.column->type);
      }
    return ValueType::Unknown;
  }

  const Expression* FindInQuery(const QString& name, const Query& query) {
    for (const SelectItem& item : query.items)
      if (IsSame(item.alias.isEmpty() ? item.value->text : item.alias, name)) return item.value.get();
    // A star gives what its tables have.
    for (const SelectItem& item : query.items) {
      if (item.value->kind != Expression::Star) continue;
      Scope scope;
      for (const TableReference& table : query.tables) scope.tables.push_back(&table);
      starred_.push_back(MakeExpression(Expression::Name));
      starred_.back()->text = name;
      starred_.back()->qualifier = item.value->qualifier;
      starred_.back()->type = FindColumn(*starred_.back(), scope);
      return starred_.back().get();
    }
    return nullptr;
  }

  const TableLookup& lookup_;
  std::vector<ExpressionPtr> starred_;
};

}  // namespace

ValueType TypeOfColumn(int adoType) {
  switch (GroupOfType(adoType)) {
    case TypeGroup::Text:
      return ValueType::Text;
    case TypeGroup::Binary:
      return ValueType::Binary;
    case TypeGroup::Date:
      return adoType == AdoType::DbTime ? ValueType::Unknown : ValueType::Date;
    case TypeGroup::Number:
      break;
  }
  switch (adoType) {
    case AdoType::Single:
    case AdoType::Double:
      return ValueType::Float;
    case AdoType::Currency:
    case AdoType::Decimal:
    case AdoType::Numeric:
      return ValueType::Decimal;
    default:
      return ValueType::Integer;
  }
}

ValueType Stronger(ValueType left, ValueType right) { return std::max(left, right); }

void InferTypes(Statement& statement, const TableLookup& tables) { Inference(tables).Read(statement); }

}  // namespace folvane::sql
