// Statements that count and add up, and those that decide between two.
#include <cmath>

#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

namespace {

/// The values that are not null; with `once`, each of those that compare equal once.
std::vector<Value> ValuesOf(const std::vector<Env>& rows, const Term& term, bool once) {
  std::vector<Value> values;
  for (const Env& row : rows) {
    const Value value = term.of(row);
    const auto isSame = [&](const Value& known) { return Compare(known, value) == 0; };
    if (IsNull(value) || (once && std::any_of(values.begin(), values.end(), isSame))) continue;
    values.push_back(value);
  }
  return values;
}

double SumOf(const std::vector<Value>& values) {
  double sum = 0;
  for (const Value& value : values) sum += Number(value);
  return sum;
}

Value Extreme(const std::vector<Value>& values, int sign) {
  Value found;
  for (const Value& value : values)
    if (IsNull(found) || Compare(value, found) * sign > 0) found = value;
  return found;
}

bool IsSameKey(const std::vector<Value>& a, const std::vector<Value>& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (IsNull(a[i]) != IsNull(b[i])) return false;
    if (!IsNull(a[i]) && Compare(a[i], b[i]) != 0) return false;
  }
  return true;
}

std::vector<std::vector<Env>> Grouped(const std::vector<Env>& rows, const std::vector<Term>& keys) {
  std::vector<std::pair<std::vector<Value>, std::vector<Env>>> groups;
  for (const Env& row : rows) {
    std::vector<Value> key;
    for (const Term& term : keys) key.push_back(term.of(row));
    auto group =
        std::find_if(groups.begin(), groups.end(), [&](const auto& known) { return IsSameKey(known.first, key); });
    if (group == groups.end()) group = groups.insert(groups.end(), {key, {}});
    group->second.push_back(row);
  }
  std::vector<std::vector<Env>> found;
  for (auto& group : groups) found.push_back(std::move(group.second));
  return found;
}

}  // namespace

std::function<Value(const std::vector<Env>&)> Maker::MakeAggregateTerm(int depth, QString& text, Type& type,
                                                                       bool& chooses) {
  const int kind = Below(7);
  type = kind <= 2 ? Type::Integer : kind <= 4 ? (OneIn(2) ? Type::Integer : Type::Decimal) : Type(Below(4));
  if (kind == 0) {
    text = OneIn(2) ? u"Count(*)"_s : u"Count(1)"_s;
    return [](const std::vector<Env>& rows) { return Value(double(rows.size())); };
  }
  const Term term = MakeTerm(kind <= 2 ? Type(Below(4)) : type, depth);
  if (kind <= 2) {
    text = (kind == 1 ? u"Count("_s : u"Count(Distinct "_s) + term.text + u")"_s;
    return [=](const std::vector<Env>& rows) { return Value(double(ValuesOf(rows, term, kind == 2).size())); };
  }
  if (kind == 3) {
    text = u"Sum("_s + term.text + u")"_s;
    return [=](const std::vector<Env>& rows) {
      const std::vector<Value> values = ValuesOf(rows, term, false);
      return values.empty() ? Value() : Value(SumOf(values));
    };
  }
  if (kind == 4) {
    text = u"Avg("_s + term.text + u")"_s;
    return [=, whole = type == Type::Integer](const std::vector<Env>& rows) {
      const std::vector<Value> values = ValuesOf(rows, term, false);
      const double average = values.empty() ? 0 : SumOf(values) / double(values.size());
      return values.empty() ? Value() : Value(whole ? std::trunc(average) : average);
    };
  }
  chooses = chooses || type == Type::Text;
  text = (kind == 5 ? u"Min("_s : u"max("_s) + term.text + u")"_s;
  return [=](const std::vector<Env>& rows) { return Extreme(ValuesOf(rows, term, false), kind == 5 ? -1 : 1); };
}

Query Maker::MakeAggregate(int depth) {
  if (OneIn(4)) {  // a batch that decides between two
    const Condition condition = MakeCondition(depth + 1);
    const Table* table = &OneOf(tables_);
    const QString rest = u"' As Result,Count(1)as T From "_s + table->name;
    return {u"If Not ("_s + condition.text + u") Select 'False"_s + rest + u" Else Select 'True"_s + rest,
            {{u"Result"_s, Type::Text}, {u"T"_s, Type::Integer}},
            [=](const Env&) {
              const QString result = condition.of({}) == Truth(false) ? u"False"_s : u"True"_s;
              const auto row =
                  std::make_shared<std::vector<Value>>(std::vector<Value>{result, double(table->records.size())});
              return std::vector<Record>{row};
            }};
  }
  const From from = MakeFrom(depth);
  const Condition where = MakeCondition(depth);
  Query query;
  QStringList texts;
  std::vector<std::function<Value(const std::vector<Env>&)>> terms;
  for (int count = 1 + Below(3); count > 0; --count) {
    Column column{u"c"_s, Type::Text};
    QString text;
    terms.push_back(MakeAggregateTerm(depth, text, column.type, query.choosesTexts));
    query.columns.push_back(column);
    texts << text;
  }
  LeaveScope(0);
  query.text = u"Select "_s + texts.join(u',') + u" From "_s + from.text + u" Where "_s + where.text;
  query.rows = [=](const Env& env) {
    std::vector<Env> rows;
    for (const Env& row : from.rows(env))
      if (where.of(row).value_or(false)) rows.push_back(row);
    auto values = std::make_shared<std::vector<Value>>();
    for (const auto& term : terms) values->push_back(term(rows));
    return std::vector<Record>{values};
  };
  return query;
}

Query Maker::MakeGrouped(int depth) {
  const From from = MakeFrom(depth);
  std::vector<Term> keys;
  QStringList groups, items;
  Query query;
  query.choosesTexts = true;
  for (int count = 1 + Below(2); count > 0; --count) {
    const auto column = FindColumn(Type(Below(4)));
    if (!column) continue;
    keys.push_back(*column);
    groups << column->text;
    items << column->text;
    query.columns.push_back({u"c"_s, column->type});
  }
  std::vector<std::function<Value(const std::vector<Env>&)>> terms;
  for (int count = keys.empty() ? 1 : Below(3); count > 0; --count) {
    Column column{u"c"_s, Type::Text};
    QString text;
    terms.push_back(MakeAggregateTerm(depth, text, column.type, query.choosesTexts));
    query.columns.push_back(column);
    items << text;
  }
  const int most = OneIn(2) ? Below(2) : -1;
  LeaveScope(0);
  query.text = u"Select "_s + items.join(u',') + u" From "_s + from.text;
  if (!keys.empty()) query.text += u" Group By "_s + groups.join(u',');
  if (most >= 0) query.text += u" Having Count(*)>"_s + QString::number(most);
  query.rows = [=](const Env& env) {
    std::vector<std::vector<Env>> parts = Grouped(from.rows(env), keys);
    if (keys.empty() && parts.empty()) parts.emplace_back();
    std::vector<Record> rows;
    for (const std::vector<Env>& part : parts) {
      if (most >= 0 && part.size() <= std::size_t(most)) continue;
      auto values = std::make_shared<std::vector<Value>>();
      for (const Term& key : keys) values->push_back(key.of(part.front()));
      for (const auto& term : terms) values->push_back(term(part));
      rows.push_back(values);
    }
    return rows;
  };
  return query;
}

}  // namespace folvane::test::oracle
