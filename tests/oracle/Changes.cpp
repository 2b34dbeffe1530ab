// Statements that write.
#include <algorithm>

#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

Change Maker::MakeChange() {
  scope_.clear();
  Table& table = tables_[std::size_t(Below(int(tables_.size())))];
  switch (Below(4)) {
    case 0:
      return MakeInsert(table);
    case 1:
      return MakeDelete(table);
    default:
      return MakeUpdate(table);
  }
}

/// A term whose value the column takes as it is.
Term Maker::Fitting(const Column& column, int depth) {
  if (column.isDigits) {
    const QString digits = QString::number(Below(30));
    return {u"'"_s + digits + u"'"_s, Type::Text, [digits](const Env&) { return Value(digits); }};
  }
  if (column.type == Type::Text) {
    if (OneIn(4)) {
      const Term number = MakeInteger(0);
      return {number.text, Type::Text, [of = number.of](const Env& env) {
                const Value value = of(env);
                return IsNull(value) ? value : Value(AsText(value));
              }};
    }
    const Term text = MakeText(depth);
    return {u"Left("_s + text.text + u",5)"_s, Type::Text, [of = text.of](const Env& env) {
              const Value value = of(env);
              return IsNull(value) ? value : Value(Left(Text(value), 5));
            }};
  }
  if (column.type == Type::Date) {
    QDateTime moment = AnyMoment();
    if (column.name == "day"_L1) moment.setTime(QTime(0, 0));
    return MakeDateText(moment);
  }
  return column.type == Type::Decimal ? NumberLiteral(Type::Decimal) : MakeInteger(depth);
}

Change Maker::MakeInsert(Table& table) {
  const double id = 2000 + Below(1000);
  QStringList names{u"id"_s}, texts{QString::number(id)};
  std::vector<std::pair<std::size_t, Term>> terms;
  for (std::size_t column = 1; column < table.columns.size(); ++column) {
    if (OneIn(3)) continue;
    terms.emplace_back(column, Fitting(table.columns[column], 2));
    names << table.columns[column].name;
    texts << terms.back().second.text;
  }
  const bool selects = OneIn(3);
  const Condition condition = MakeCondition(1);
  const QString values = selects ? u" Select "_s + texts.join(u',') + u" Where "_s + condition.text
                                 : u" Values("_s + texts.join(u',') + u")"_s;
  return {u"Insert Into "_s + table.name + u"("_s + names.join(u',') + u")"_s + values, [=, &table] {
            if (selects && !condition.of({}).value_or(false)) return;
            auto record = std::make_shared<std::vector<Value>>(table.columns.size());
            (*record)[0] = id;
            for (const auto& [column, term] : terms) (*record)[column] = term.of({});
            table.records.push_back(record);
          }};
}

// SQLite lets the queries of an update see the rows that it has updated: they read another table.
Change Maker::MakeUpdate(Table& table) {
  spared_ = &table;
  scope_.push_back({table.name, table.columns, 0, true});
  const Condition where = MakeCondition(2);
  QStringList texts;
  std::vector<std::pair<std::size_t, Term>> terms;
  for (std::size_t column = 1 + std::size_t(Below(2)); column < table.columns.size();
       column += 1 + std::size_t(Below(3))) {
    terms.emplace_back(column, Fitting(table.columns[column], 2));
    texts << table.columns[column].name + u"="_s + terms.back().second.text;
  }
  scope_.clear();
  return {u"Update "_s + table.name + u" Set "_s + texts.join(u',') + u" Where "_s + where.text, [=, &table] {
            std::vector<Record> updated;
            for (const Record& before : table.records) {
              auto record = std::make_shared<std::vector<Value>>(*before);
              if (where.of({before}).value_or(false))
                for (const auto& [column, term] : terms) (*record)[column] = term.of({before});
              updated.push_back(record);
            }
            table.records = updated;
          }};
}

Change Maker::MakeDelete(Table& table) {
  scope_.push_back({table.name, table.columns, 0, true});
  const Condition where = MakeCondition(2);
  scope_.clear();
  return {u"Delete From "_s + table.name + u" Where "_s + where.text, [=, &table] {
            std::vector<Record> kept;
            for (const Record& record : table.records)
              if (!where.of({record}).value_or(false)) kept.push_back(record);
            table.records = kept;
          }};
}

}  // namespace folvane::test::oracle
