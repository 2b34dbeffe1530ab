#include "data/dialect/Emitter.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "data/dialect/Functions.h"
#include "data/dialect/LikePatterns.h"
#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {

// Backslashes in a pattern stand for themselves in the language; the escape sign is our own.
constexpr std::array kWords{
    DialectWords{DialectKind::Sqlite, true, "%1", "folvane_number(%1)", "folvane_date(%1)", "%1 COLLATE FOLVANE",
                 "%1 COLLATE FOLVANE", "%1 COLLATE FOLVANE", "%1 LIKE %2 ESCAPE '\\'", "folvane_like(%2,%1)", "%1", "",
                 ""},
    DialectWords{DialectKind::PostgreSql, false, "CAST(%1 AS text)",
                 "CAST(COALESCE(NULLIF(btrim(CAST(%1 AS text)),''),'0') AS numeric)",
                 "CAST(COALESCE(NULLIF(btrim(CAST(%1 AS text)),''),'1900-01-01') AS timestamp)",
                 "lower(rtrim(%1) COLLATE \"C\")", "%1", "lower(rtrim(%1) COLLATE \"C\")", "%1 ILIKE %2 ESCAPE '\\'",
                 "%1 ~* %2", "to_char(%1,'YYYY-MM-DD')", " NULLS FIRST", " NULLS LAST"},
};

using E = Expression;

QString Fill(const char* form, const QString& value) {
  return QString::fromUtf8(form).replace(QLatin1String("%1"), value);
}

QString Fill(const char* form, const QString& value, const QString& other) {
  QString text;
  for (const char* c = form; *c; ++c)
    if (c[0] == '%' && (c[1] == '1' || c[1] == '2'))
      text += *++c == '1' ? value : other;
    else
      text += QLatin1Char(*c);
  return text;
}

const E& Bare(const E& value) { return value.kind == E::Group ? Bare(*value.parts[0]) : value; }
bool IsLiteral(const E& value) { return Bare(value).kind == E::Text; }
bool IsType(const E& value, TypeGroup group) { return value.type == group; }
bool IsKeyLike(const E& value) {
  return IsLiteral(value) && ClassOf(Bare(value).text) == KeyText && !Bare(value).text.endsWith(u' ');
}

class Emitter {
 public:
  explicit Emitter(DialectKind dialect) : words_(WordsOf(dialect)), postgres_(dialect == DialectKind::PostgreSql) {}

  Emitted Done(const QString& text) {
    out_.text = text;
    return std::move(out_);
  }

  QString OfStatement(const Statement& statement) {
    switch (statement.kind) {
      case Statement::Insert:
        return OfInsert(statement);
      case Statement::Update:
        return OfUpdate(statement);
      case Statement::Delete:
        return QStringLiteral("DELETE FROM ") + OfTarget(statement.target) + OfWhere(statement.where);
      default:
        return OfQuery(*statement.query);
    }
  }

  QString OfQuery(const Query& query) {
    QString text = OfSelect(query);
    for (const Query* part = &query; part->next; part = part->next.get())
      text += QLatin1Char(' ') + part->unionWord + QLatin1Char(' ') + OfSelect(*part->next);
    if (!query.orderBy.empty()) text += QStringLiteral(" ORDER BY ") + OfOrder(query);
    if (query.top) text += QStringLiteral(" LIMIT ") + Value(*query.top);
    return text;
  }

  QString Value(const E& value) {
    switch (value.kind) {
      case E::Name:
        return OfName(value);
      case E::Text:
      case E::Number:
        return OfLiteral(value, Transform::Plain);
      case E::Null:
        return QStringLiteral("NULL");
      case E::Star:
        return value.qualifier.isEmpty() ? QStringLiteral("*") : Quoted(value.qualifier) + QStringLiteral(".*");
      case E::Unary:
        return value.text == QLatin1String("NOT") ? QStringLiteral("NOT ") + Value(*value.parts[0])
                                                  : value.text + QLatin1Char(' ') + AsNumber(*value.parts[0]);
      case E::Binary:
        return OfOperator(value);
      case E::Like:
        return OfLike(value);
      case E::In:
        return OfIn(value);
      case E::Between:
        return OfBetween(value);
      case E::IsNull:
        return Value(*value.parts[0]) + (value.negated ? QStringLiteral(" IS NOT NULL") : QStringLiteral(" IS NULL"));
      case E::Call:
        return OfCall(value);
      case E::Case:
        return OfCase(value);
      case E::Cast:
        return OfCast(value);
      case E::Subquery:
        return QLatin1Char('(') + OfQuery(*value.query) + QLatin1Char(')');
      case E::Exists:
        return QStringLiteral("EXISTS (") + OfQuery(*value.query) + QLatin1Char(')');
      case E::Group:
        return QLatin1Char('(') + Value(*value.parts[0]) + QLatin1Char(')');
    }
    return {};
  }

 private:
  // Names and literals.
  QString Quoted(const QString& name) const {
    QString inner = postgres_ ? name.toLower() : name;
    return QLatin1Char('"') + inner.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
  }

  // The database's own spelling, which PostgreSQL is particular about.
  static QString Physical(QString name) {
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
  }

  QString OfTarget(const TableReference& table) const {
    return table.info ? Physical(table.info->name) : Quoted(table.name);
  }

  QString OfName(const E& value) const {
    const QString column = value.column ? Physical(value.column->name) : Quoted(value.text);
    if (value.qualifier.isEmpty()) return column;
    for (const TableReference* table : named_)
      if (table->alias.isEmpty() && table->info && table->name.compare(value.qualifier, Qt::CaseInsensitive) == 0)
        return Physical(table->info->name) + QLatin1Char('.') + column;
    return Quoted(value.qualifier) + QLatin1Char('.') + column;
  }

  QString OfLiteral(const E& value, Transform transform) {
    const E& literal = Bare(value);
    if (words_.bindsLiterals && !inlineLiterals_) {
      const Binding binding{literal.literal, transform};
      const auto known = std::find(out_.bindings.begin(), out_.bindings.end(), binding);
      const auto place = known - out_.bindings.begin() + 1;
      if (known == out_.bindings.end()) out_.bindings.push_back(binding);
      return QLatin1Char('?') + QString::number(place);
    }
    out_.cacheable = false;
    if (literal.kind == E::Number) return literal.text;
    return InText(Apply(transform, {true, literal.text}));
  }

  static QString InText(const QVariant& value) {
    if (value.typeId() != QMetaType::QString) return value.toString();
    return QLatin1Char('\'') + value.toString().replace(QLatin1Char('\''), QLatin1String("''")) + QLatin1Char('\'');
  }

  // Values as the other side of a comparison or a function wants them.
  QString AsText(const E& value) {
    if (IsLiteral(value)) return OfLiteral(value, Transform::Plain);
    if (IsType(value, TypeGroup::Date)) return Fill(words_.dateText, Value(value));
    return IsType(value, TypeGroup::Text) ? Value(value) : Fill(words_.asText, Value(value));
  }

  QString AsNumber(const E& value) {
    if (IsLiteral(value)) return OfLiteral(value, Transform::Number);
    return IsType(value, TypeGroup::Text) ? Fill(words_.asNumber, Value(value)) : Value(value);
  }

  QString AsDate(const E& value) {
    if (IsLiteral(value)) return OfLiteral(value, Transform::Date);
    return IsType(value, TypeGroup::Text) ? Fill(words_.asDate, Value(value)) : Value(value);
  }

  QString AsFolded(const E& value) {
    if (IsLiteral(value)) return OfLiteral(value, Transform::Folded);
    return Fill(words_.folded, AsText(value));
  }

  QString As(TypeGroup group, const E& value) {
    if (value.kind == E::Null) return Value(value);
    switch (group) {
      case TypeGroup::Number:
        return AsNumber(value);
      case TypeGroup::Date:
        return AsDate(value);
      case TypeGroup::Text:
        return AsText(value);
      default:
        return Value(value);
    }
  }

  // Comparisons.
  static TypeGroup CommonType(const E& left, const E& right) {
    for (const TypeGroup group : {TypeGroup::Number, TypeGroup::Date})
      if (left.type == group || right.type == group) return group;
    return TypeGroup::Text;
  }

  QString Compare(const QString& op, const E& left, const E& right) {
    const auto joined = [&](const QString& a, const QString& b) {
      return a + QLatin1Char(' ') + op + QLatin1Char(' ') + b;
    };
    if (Bare(left).kind == E::Null || Bare(right).kind == E::Null) return joined(Value(left), Value(right));
    if (left.type == TypeGroup::Binary || right.type == TypeGroup::Binary || (!left.type && !right.type && postgres_))
      return joined(Value(left), Value(right));
    const TypeGroup group = CommonType(left, right);
    if (group != TypeGroup::Text) return joined(As(group, left), As(group, right));
    if (op == QLatin1String("=") && left.column && IsKeyLike(right)) return KeyEquals(left, right);
    if (op == QLatin1String("=") && right.column && IsKeyLike(left)) return KeyEquals(right, left);
    // A collation goes with the left side of the comparison, unless that is a literal.
    const bool byCollation = !postgres_ && !IsLiteral(left) && IsLiteral(right);
    return joined(AsFolded(left), byCollation ? AsText(right) : AsFolded(right));
  }

  // A text without letters needs no folding, and the column's index serves. Trailing blanks sort right behind the bare
  // text, so that a narrow range holds them.
  QString KeyEquals(const E& column, const E& literal) {
    const QString name = Value(column);
    if (postgres_) return name + QStringLiteral(" = ") + OfLiteral(literal, Transform::Trimmed);
    const QString text = OfLiteral(literal, Transform::Trimmed), end = OfLiteral(literal, Transform::PastEnd);
    return QStringLiteral("(%1 >= %2 AND %1 < %3 AND %1 COLLATE FOLVANE = %2)").arg(name, text, end);
  }

  QString OfOperator(const E& value) {
    const E &left = *value.parts[0], &right = *value.parts[1];
    static const QStringList kComparisons{QStringLiteral("="),  QStringLiteral("<>"), QStringLiteral("<"),
                                          QStringLiteral("<="), QStringLiteral(">"),  QStringLiteral(">=")};
    if (kComparisons.contains(value.text)) return Compare(value.text, left, right);
    if (value.text == QLatin1String("AND") || value.text == QLatin1String("OR"))
      return Value(left) + QLatin1Char(' ') + value.text + QLatin1Char(' ') + Value(right);
    if (value.text == QLatin1String("+") && value.type == TypeGroup::Text)
      return QLatin1Char('(') + AsText(left) + QStringLiteral(" || ") + AsText(right) + QLatin1Char(')');
    if ((value.text == QLatin1String("+") || value.text == QLatin1String("-")) &&
        (left.type == TypeGroup::Date || right.type == TypeGroup::Date))
      Refuse(QStringLiteral("日期的加减，请用 DateAdd 或 DateDiff"));
    return AsNumber(left) + QLatin1Char(' ') + value.text + QLatin1Char(' ') + AsNumber(right);
  }

  QString OfLike(const E& value) {
    const E &subject = *value.parts[0], &pattern = *value.parts[1];
    const QString text = AsText(subject);
    QString test;
    if (pattern.kind == E::Text) {
      test = LikeText(text, pattern, value.parts.size() > 2 ? value.parts[2].get() : nullptr);
    } else if (postgres_ || value.parts.size() > 2) {
      Refuse(QStringLiteral("Like 后面不是文本常量"));
    } else {
      test = Fill(words_.likeClasses, text, AsText(pattern));
    }
    return value.negated ? QStringLiteral("NOT (") + test + QLatin1Char(')') : test;
  }

  QString LikeText(const QString& text, const E& pattern, const E* escape) {
    if (escape && (escape->kind != E::Text || escape->text.size() != 1)) Refuse(QStringLiteral("Escape"));
    const LikePattern read = ReadPattern(pattern.text, escape ? escape->text[0] : QChar());
    if (!read.hasClass) {
      if (!escape) return Fill(words_.like, text, OfLiteral(pattern, Transform::Pattern));
      out_.cacheable = false;
      return Fill(words_.like, text, InText(read.native));
    }
    out_.cacheable = false;
    if (postgres_)
      return Fill(words_.likeClasses, text, InText(QStringLiteral("^(?:") + read.regex + QStringLiteral(")$")));
    if (escape) return QStringLiteral("folvane_like(%1,%2,%3)").arg(InText(pattern.text), text, InText(escape->text));
    return Fill(words_.likeClasses, text, InText(pattern.text));
  }

  QString OfIn(const E& value) {
    const E& subject = *value.parts[0];
    const QString in = value.negated ? QStringLiteral(" NOT IN (") : QStringLiteral(" IN (");
    if (value.query) return InQuery(value, in);
    TypeGroup group = TypeGroup::Text;
    bool keys = subject.column != nullptr;
    for (const ExpressionPtr& part : value.parts)
      if (part.get() != &subject) {
        if (group == TypeGroup::Text) group = CommonType(subject, *part);
        keys = keys && IsKeyLike(*part);
      }
    QStringList list;
    for (std::size_t i = 1; i < value.parts.size(); ++i) {
      const E& part = *value.parts[i];
      if (group != TypeGroup::Text)
        list << As(group, part);
      else
        list << (keys ? OfLiteral(part, Transform::Trimmed) : postgres_ ? AsFolded(part) : AsText(part));
    }
    const QString left = group != TypeGroup::Text ? As(group, subject) : keys ? Value(subject) : AsFolded(subject);
    return left + in + list.join(QLatin1Char(',')) + QLatin1Char(')');
  }

  QString InQuery(const E& value, const QString& in) {
    const E& subject = *value.parts[0];
    const E& item = *value.query->items[0].value;
    const QString query = OfQuery(*value.query);
    const TypeGroup group = CommonType(subject, item);
    if (subject.type == TypeGroup::Binary || (!subject.type && !item.type))
      return Value(subject) + in + query + QLatin1Char(')');
    if (!postgres_)
      return (group == TypeGroup::Text ? AsFolded(subject) : Value(subject)) + in + query + QLatin1Char(')');
    if (group != TypeGroup::Text)
      return As(group, subject) + in +
             (item.type == TypeGroup::Text ? QStringLiteral("SELECT %1 FROM (%2) AS q(x)")
                                                 .arg(Fill(words_.asNumber, QStringLiteral("q.x")), query)
                                           : query) +
             QLatin1Char(')');
    return AsFolded(subject) + in +
           QStringLiteral("SELECT %1 FROM (%2) AS q(x)")
               .arg(Fill(words_.folded, Fill(words_.asText, QStringLiteral("q.x"))), query) +
           QLatin1Char(')');
  }

  QString OfBetween(const E& value) {
    const QString range = QLatin1Char('(') + Compare(QStringLiteral(">="), *value.parts[0], *value.parts[1]) +
                          QStringLiteral(" AND ") + Compare(QStringLiteral("<="), *value.parts[0], *value.parts[2]) +
                          QLatin1Char(')');
    return value.negated ? QStringLiteral("NOT ") + range : range;
  }

  QString OfCase(const E& value) {
    QString text = QStringLiteral("CASE");
    std::size_t i = value.hasOperand ? 1 : 0;
    const std::size_t end = value.parts.size() - (value.hasElse ? 1 : 0);
    for (; i + 2 <= end; i += 2)
      text +=
          QStringLiteral(" WHEN ") +
          (value.hasOperand ? Compare(QStringLiteral("="), *value.parts[0], *value.parts[i]) : Value(*value.parts[i])) +
          QStringLiteral(" THEN ") + Value(*value.parts[i + 1]);
    if (value.hasElse) text += QStringLiteral(" ELSE ") + Value(*value.parts.back());
    return text + QStringLiteral(" END");
  }

  // Functions.
  QString OfCall(const E& value) {
    if (value.text == QLatin1String("datepart") || value.text == QLatin1String("datediff") ||
        value.text == QLatin1String("dateadd"))
      return OfDateCall(value);
    const Function* function = FindFunction(value.text, static_cast<int>(value.parts.size()));
    if (!function) Refuse(QStringLiteral("函数“%1”").arg(value.text));
    QStringList arguments;
    for (std::size_t i = 0; i < value.parts.size(); ++i) {
      const E& part = *value.parts[i];
      arguments << (i == 0 && function->takesText                                          ? AsText(part)
                    : value.type && part.kind != E::Null && part.type && !function->result ? As(*value.type, part)
                                                                                           : Value(part));
    }
    QString all = arguments.join(QLatin1Char(','));
    if (value.distinct) all.prepend(QStringLiteral("DISTINCT "));
    return FillArguments(QString::fromUtf8(function->Form(words_.kind)), arguments, all);
  }

  QString OfDateCall(const E& value) {
    const std::size_t expected = value.text == QLatin1String("datepart") ? 2 : 3;
    if (value.parts.size() != expected || value.parts[0]->kind != E::Name)
      Refuse(QStringLiteral("函数“%1”").arg(value.text));
    const QString form = DatePartForm(words_.kind, value.text, value.parts[0]->text);
    if (form.isEmpty()) Refuse(QStringLiteral("%1(%2,…)").arg(value.text, value.parts[0]->text));
    QStringList arguments;
    for (std::size_t i = 1; i < expected; ++i) arguments << Value(*value.parts[i]);
    return FillArguments(form, arguments, {});
  }

  static QString FillArguments(const QString& form, const QStringList& arguments, const QString& all) {
    QString text;
    for (qsizetype i = 0; i < form.size(); ++i) {
      if (form[i] != u'$') {
        text += form[i];
        continue;
      }
      const QChar which = form[++i];
      text += which == u'*' ? all : arguments.at(which.digitValue() - 1);
    }
    return text;
  }

  QString OfCast(const E& value) {
    const E& inner = *value.parts[0];
    if (!value.type) Refuse(QStringLiteral("类型“%1”").arg(value.text));
    switch (*value.type) {
      case TypeGroup::Number: {
        const bool whole = value.text.contains(QLatin1String("int")) || value.text == QLatin1String("bit");
        return QStringLiteral("CAST(%1 AS %2)")
            .arg(AsNumber(inner), whole       ? QStringLiteral("INTEGER")
                                  : postgres_ ? QStringLiteral("numeric")
                                              : QStringLiteral("REAL"));
      }
      case TypeGroup::Date:
        return IsType(inner, TypeGroup::Date) ? Value(inner) : Fill(words_.asDate, AsText(inner));
      default:
        return OfTextCast(value);
    }
  }

  QString OfTextCast(const E& value) {
    const E& inner = *value.parts[0];
    QString text;
    if (value.style != 0) {
      const QString form = DateStyleForm(words_.kind, value.style);
      if (form.isEmpty()) Refuse(QStringLiteral("Convert 的样式 %1").arg(value.style));
      text = FillArguments(form, {Value(inner)}, {});
    } else {
      text = postgres_ ? AsText(inner) : QStringLiteral("CAST(%1 AS TEXT)").arg(Value(inner));
    }
    if (value.size == 0) return text;
    return (postgres_ ? QStringLiteral("left(%1,%2)") : QStringLiteral("substr(%1,1,%2)")).arg(text).arg(value.size);
  }

  // Queries.
  QString OfSelect(const Query& query) {
    const std::size_t before = named_.size();
    for (const TableReference& table : query.tables) named_.push_back(&table);
    QString text = query.distinct ? QStringLiteral("SELECT DISTINCT ") : QStringLiteral("SELECT ");
    QStringList items;
    for (const SelectItem& item : query.items) items << OfItem(item, query.distinct);
    text += items.join(QLatin1Char(','));
    for (std::size_t i = 0; i < query.tables.size(); ++i) text += OfTable(query.tables[i], i == 0);
    text += OfWhere(query.where);
    if (!query.groupBy.empty()) {
      QStringList groups;
      for (const ExpressionPtr& group : query.groupBy)
        groups << (IsType(*group, TypeGroup::Text) ? Fill(words_.grouped, Value(*group)) : Value(*group));
      text += QStringLiteral(" GROUP BY ") + groups.join(QLatin1Char(','));
    }
    if (query.having) text += QStringLiteral(" HAVING ") + Value(*query.having);
    named_.resize(before);
    return text;
  }

  QString OfItem(const SelectItem& item, bool distinct) {
    const E& value = *item.value;
    QString text = Value(value), alias = item.alias;
    const bool isCondition = value.kind == E::Like || value.kind == E::In || value.kind == E::Between ||
                             value.kind == E::IsNull || value.kind == E::Exists ||
                             (value.kind == E::Binary && !value.type && value.text != QLatin1String("+"));
    if (isCondition) Refuse(QStringLiteral("在 Select 列表中写条件"));
    if (distinct && !postgres_ && IsType(value, TypeGroup::Text)) {
      text = Fill(words_.grouped, text);
      if (alias.isEmpty() && value.kind == E::Name) alias = value.text;
    }
    return alias.isEmpty() ? text : text + QStringLiteral(" AS ") + Quoted(alias);
  }

  QString OfTable(const TableReference& table, bool first) {
    QString text = first                              ? QStringLiteral(" FROM ")
                   : table.join == QLatin1String(",") ? QStringLiteral(",")
                                                      : QLatin1Char(' ') + table.join + QLatin1Char(' ');
    text += table.query ? QLatin1Char('(') + OfQuery(*table.query) + QLatin1Char(')') : OfTarget(table);
    if (!table.alias.isEmpty()) text += QStringLiteral(" AS ") + Quoted(table.alias);
    if (table.on) text += QStringLiteral(" ON ") + Value(*table.on);
    return text;
  }

  QString OfWhere(const ExpressionPtr& where) { return where ? QStringLiteral(" WHERE ") + Value(*where) : QString(); }

  QString OfOrder(const Query& query) {
    for (const TableReference& table : query.tables) named_.push_back(&table);
    QStringList items;
    for (const OrderItem& item : query.orderBy) {
      const E& value = *item.value;
      QString text;
      inlineLiterals_ = true;
      // The key's own order is that of its index; and a distinct or joined result can be ordered by its columns alone.
      const bool plain = value.isKey || query.distinct || query.next || !IsType(value, TypeGroup::Text);
      text = plain ? Value(value) : Fill(words_.sorted, Value(value));
      inlineLiterals_ = false;
      if (item.descending) text += QStringLiteral(" DESC");
      if (!value.isKey) text += QLatin1String(item.descending ? words_.nullsLast : words_.nullsFirst);
      items << text;
    }
    named_.resize(named_.size() - query.tables.size());
    return items.join(QLatin1Char(','));
  }

  // Writing statements.
  static const ColumnInfo* ColumnOf(const TableReference& target, const QString& name) {
    const int index = target.info ? target.info->IndexOf(name) : -1;
    return index < 0 ? nullptr : &target.info->columns[static_cast<std::size_t>(index)];
  }

  QString Stored(const ColumnInfo* column, const E& value) {
    if (!column || value.kind == E::Null) return Value(value);
    const TypeGroup group = GroupOfType(column->type);
    if (group == TypeGroup::Text && !postgres_) return Value(value);
    return As(group, value);
  }

  QString OfInsert(const Statement& statement) {
    QString text = QStringLiteral("INSERT INTO ") + OfTarget(statement.target);
    const auto& given = statement.assignments;
    QStringList columns, values;
    for (std::size_t i = 0; i < given.size(); ++i) {
      const ColumnInfo* column = nullptr;
      if (!given[i].column.isEmpty()) {
        column = ColumnOf(statement.target, given[i].column);
        columns << (column ? Physical(column->name) : Quoted(given[i].column));
      } else if (statement.target.info && i < statement.target.info->columns.size()) {
        column = &statement.target.info->columns[i];
      }
      values << Stored(column, *given[i].value);
    }
    for (const QString& name : statement.columns) {
      const ColumnInfo* column = ColumnOf(statement.target, name);
      columns << (column ? Physical(column->name) : Quoted(name));
    }
    if (!columns.isEmpty()) text += QStringLiteral(" (") + columns.join(QLatin1Char(',')) + QLatin1Char(')');
    if (statement.query) return text + QLatin1Char(' ') + OfQuery(*statement.query);
    return text + QStringLiteral(" VALUES (") + values.join(QLatin1Char(',')) + QLatin1Char(')');
  }

  QString OfUpdate(const Statement& statement) {
    QStringList sets;
    for (const Assignment& assignment : statement.assignments) {
      const ColumnInfo* column = ColumnOf(statement.target, assignment.column);
      sets << (column ? Physical(column->name) : Quoted(assignment.column)) + QStringLiteral(" = ") +
                  Stored(column, *assignment.value);
    }
    named_.push_back(&statement.target);
    return QStringLiteral("UPDATE ") + OfTarget(statement.target) + QStringLiteral(" SET ") +
           sets.join(QLatin1Char(',')) + OfWhere(statement.where);
  }

  const DialectWords& words_;
  bool postgres_;
  bool inlineLiterals_ = false;
  std::vector<const TableReference*> named_;
  Emitted out_;
};

}  // namespace

const DialectWords& WordsOf(DialectKind kind) { return kind == DialectKind::PostgreSql ? kWords[1] : kWords[0]; }

Emitted EmitStatement(const Statement& statement, DialectKind dialect) {
  Emitter emitter(dialect);
  return emitter.Done(emitter.OfStatement(statement));
}

Emitted EmitQuery(const Query& query, DialectKind dialect) {
  Emitter emitter(dialect);
  return emitter.Done(emitter.OfQuery(query));
}

Emitted EmitCondition(const Expression& condition, DialectKind dialect) {
  Emitter emitter(dialect);
  return emitter.Done(QStringLiteral("SELECT CASE WHEN ") + emitter.Value(condition) +
                      QStringLiteral(" THEN 1 ELSE 0 END"));
}

}  // namespace folvane::sql
