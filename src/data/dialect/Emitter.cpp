#include "data/dialect/Emitter.h"

#include <algorithm>

#include "data/dialect/EmittedNames.h"
#include "data/dialect/Literals.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

class Emitter {
 public:
  explicit Emitter(const Dialect& dialect) : dialect_(dialect), names_(dialect) {}

  Translation Take() { return std::move(out_); }
  void Put(const char* text) { out_.text += text; }

  void Put(const Statement& statement) {
    switch (statement.kind) {
      case Statement::Insert:
        return PutInsert(statement);
      case Statement::Update:
        return PutUpdate(statement);
      case Statement::Delete:
        return PutDelete(statement);
      default:
        return Put(*statement.query);
    }
  }

  void Put(const Query& query) {
    if (query.wrapped) {
      PutSelectWord(false, query.distinctAround);
      Put("* FROM (");
    }
    const bool isUnion = query.next != nullptr;
    for (const Query* part = &query; part; part = part->next.get()) {
      const bool apart = isUnion && part->top;
      if (apart) Put("SELECT * FROM (");
      PutSelect(*part);
      if (apart) {
        PutTop(*part);
        Put(") AS q");
      }
      if (part->next) out_.text += ' ' + part->unionWord + ' ';
    }
    if (query.wrapped) Put(") AS q");
    PutOrder(query);
    if (!isUnion) PutTop(query);
  }

  void Put(const Expression& value) {
    switch (value.kind) {
      case Expression::Name:
        return PutName(value);
      case Expression::Text:
      case Expression::Number:
        return PutLiteral(value);
      case Expression::Constant:
        out_.text += dialect_.bindsLiterals ? PlainlyQuoted(value.text) : QuotedText(value.text);
        return;
      case Expression::Null:
        return Put("NULL");
      case Expression::Star:
        if (!value.qualifier.isEmpty()) out_.text += names_.OfQualifier(value.qualifier) + '.';
        return Put("*");
      case Expression::Unary:
        out_.text += value.text.toLatin1() + ' ';
        return Put(*value.parts[0]);
      case Expression::Binary:
        Put(*value.parts[0]);
        out_.text += ' ' + value.text.toLatin1() + ' ';
        return Put(*value.parts[1]);
      case Expression::IsNull:
        Put(*value.parts[0]);
        return Put(value.negated ? " IS NOT NULL" : " IS NULL");
      case Expression::Case:
        return PutCase(value);
      case Expression::Subquery:
      case Expression::Exists:
        Put(value.kind == Expression::Exists ? "EXISTS (" : "(");
        Put(*value.query);
        return Put(")");
      case Expression::Group:
        Put("(");
        Put(*value.parts[0]);
        return Put(")");
      case Expression::Native:
        return PutNative(value);
      default:
        return;  // the rewrites leave nothing else
    }
  }

 private:
  void PutName(const Expression& value) {
    if (!value.qualifier.isEmpty()) out_.text += names_.OfQualifier(value.qualifier) + '.';
    out_.text += names_.OfColumn(value.text, value.column);
  }

  static QByteArray PlainlyQuoted(const QString& text) { return '\'' + text.toUtf8().replace("'", "''") + '\''; }

  void PutLiteral(const Expression& value) {
    Slot slot{out_.text.size(), value.literal, value.transform, value.limit, {}};
    if (value.column) slot.column = *value.column;
    if (!dialect_.bindsLiterals) return out_.slots.push_back(slot);
    const auto known =
        std::find_if(out_.slots.begin(), out_.slots.end(), [&](const Slot& other) { return slot.IsSameValue(other); });
    out_.text += '?' + QByteArray::number(known - out_.slots.begin() + 1);
    if (known == out_.slots.end()) out_.slots.push_back(slot);
  }

  void PutList(const std::vector<ExpressionPtr>& values, std::size_t from = 0) {
    for (std::size_t i = from; i < values.size(); ++i) {
      if (i > from) Put(",");
      Put(*values[i]);
    }
  }

  void PutNative(const Expression& value) {
    const char* const end = value.form.constData() + value.form.size();
    for (const char* c = value.form.constData(); c < end; ++c) {
      if (*c != '$' || c + 1 == end || c[1] == '\'') {
        out_.text += *c;
        continue;
      }
      ++c;
      if (*c == 'q')
        Put(*value.query);
      else if (*c == '*' || *c == '+')
        PutList(value.parts, *c == '+' ? 1 : 0);
      else
        Put(*value.parts[size_t(*c - '1')]);
    }
  }

  void PutCase(const Expression& value) {
    Put("CASE");
    const std::size_t end = value.parts.size() - (value.hasElse ? 1 : 0);
    for (std::size_t i = 0; i + 1 < end; i += 2) {
      Put(" WHEN ");
      Put(*value.parts[i]);
      Put(" THEN ");
      Put(*value.parts[i + 1]);
    }
    if (value.hasElse) {
      Put(" ELSE ");
      Put(*value.parts.back());
    }
    Put(" END");
  }

  // Queries.
  void PutCondition(const char* word, const ExpressionPtr& condition) {
    if (!condition) return;
    Put(word);
    Put(*condition);
  }

  void PutSelect(const Query& query) {
    names_.Enter(query.tables);
    PutSelectWord(query.distinct, query.distinctOn);
    for (std::size_t i = 0; i < query.items.size(); ++i) {
      if (i > 0) Put(",");
      Put(*query.items[i].value);
      if (!query.items[i].alias.isEmpty()) out_.text += " AS " + names_.OfAlias(query.items[i].alias);
    }
    PutTables(query);
    PutCondition(" WHERE ", query.where);
    if (!query.groupBy.empty()) {
      Put(" GROUP BY ");
      PutList(query.groupBy);
    }
    PutCondition(" HAVING ", query.having);
    names_.Leave(query.tables);
  }

  void PutSelectWord(bool distinct, const std::vector<ExpressionPtr>& distinctOn) {
    if (distinctOn.empty()) return Put(distinct ? "SELECT DISTINCT " : "SELECT ");
    Put("SELECT DISTINCT ON (");
    PutList(distinctOn);
    Put(") ");
  }

  void PutTables(const Query& query) {
    bool first = true;
    for (const TableReference& table : query.tables) {
      const bool comma = table.join == ","_L1;
      out_.text += first ? " FROM " : comma ? "," : ' ' + table.join.toLatin1() + ' ';
      first = false;
      PutTable(table);
      PutCondition(" ON ", table.on);
    }
  }

  void PutTable(const TableReference& table) {
    readsTarget_ = readsTarget_ || (!table.query && table.name.compare(target_, Qt::CaseInsensitive) == 0);
    if (table.query) {
      Put("(");
      Put(*table.query);
      Put(")");
    } else {
      out_.text += names_.OfTable(table);
    }
    if (!table.alias.isEmpty()) out_.text += " AS " + names_.OfAlias(table.alias);
  }

  void PutOrder(const Query& query) {
    if (query.orderBy.empty()) return;
    names_.Enter(query.tables);
    Put(" ORDER BY ");
    for (std::size_t i = 0; i < query.orderBy.size(); ++i) {
      if (i > 0) Put(",");
      Put(*query.orderBy[i].value);
      if (query.orderBy[i].descending) Put(" DESC");
      out_.text += query.orderBy[i].nulls;
    }
    names_.Leave(query.tables);
  }

  void PutTop(const Query& query) { PutCondition(" LIMIT ", query.top); }

  // Writing statements.
  QByteArray ColumnName(const Assignment& assignment) const {
    return names_.OfColumn(assignment.column, assignment.info);
  }

  void PutDelete(const Statement& statement) {
    Put("DELETE FROM ");
    PutTable(statement.target);
    names_.Enter(statement.target);
    const qsizetype condition = out_.text.size();
    target_ = statement.target.name;
    PutCondition(" WHERE ", statement.where);
    if (!dialect_.deletesWhileReading || !readsTarget_) return;
    out_.text.insert(condition, " WHERE rowid IN (SELECT rowid FROM " + names_.OfTable(statement.target));
    Put(")");
  }

  void PutInsert(const Statement& statement) {
    Put("INSERT INTO ");
    PutTable(statement.target);
    const bool named = !statement.assignments.empty() && !statement.assignments[0].column.isEmpty();
    for (std::size_t i = 0; named && i < statement.assignments.size(); ++i)
      out_.text += (i == 0 ? " (" : ",") + ColumnName(statement.assignments[i]);
    if (named) Put(")");
    if (statement.query) {
      Put(" ");
      return Put(*statement.query);
    }
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
      Put(i == 0 ? " VALUES (" : ",");
      Put(*statement.assignments[i].value);
    }
    Put(")");
  }

  void PutUpdate(const Statement& statement) {
    Put("UPDATE ");
    PutTable(statement.target);
    names_.Enter(statement.target);
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
      out_.text += (i == 0 ? " SET " : ",") + ColumnName(statement.assignments[i]) + " = ";
      Put(*statement.assignments[i].value);
    }
    PutCondition(" WHERE ", statement.where);
  }

  const Dialect& dialect_;
  EmittedNames names_;
  QString target_;  ///< of a Delete, while its condition is put
  bool readsTarget_ = false;
  Translation out_;
};

}  // namespace

Translation Emit(const Statement& statement, const Dialect& dialect) {
  Emitter emitter(dialect);
  emitter.Put(statement);
  return emitter.Take();
}

Translation Emit(const Query& query, const Dialect& dialect) {
  Emitter emitter(dialect);
  emitter.Put(query);
  return emitter.Take();
}

Translation EmitCondition(const Expression& condition, const Dialect& dialect) {
  Emitter emitter(dialect);
  emitter.Put("SELECT CASE WHEN ");
  emitter.Put(condition);
  emitter.Put(" THEN 1 ELSE 0 END");
  return emitter.Take();
}

}  // namespace folvane::sql
