// Statements that give rows.
#include <algorithm>

#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

namespace {

Env With(Env env, const Record& record) {
  env.push_back(record);
  return env;
}

int CompareWithNulls(const Value& a, const Value& b) {
  if (IsNull(a) || IsNull(b)) return int(!IsNull(a)) - int(!IsNull(b));
  return Compare(a, b);
}

std::vector<Env> Where(const std::vector<Env>& rows, const Condition& where) {
  std::vector<Env> kept;
  for (const Env& row : rows)
    if (where.of(row).value_or(false)) kept.push_back(row);
  return kept;
}

Record Shown(const std::vector<Term>& items, const Env& env) {
  auto values = std::make_shared<std::vector<Value>>();
  for (const Term& item : items) values->push_back(item.of(env));
  return values;
}

bool IsSame(const Record& a, const Record& b) {
  return std::equal(a->begin(), a->end(), b->begin(), b->end(),
                    [](const Value& x, const Value& y) { return CompareWithNulls(x, y) == 0; });
}

std::vector<Record> WithoutRepeats(const std::vector<Record>& rows) {
  std::vector<Record> once;
  for (const Record& row : rows)
    if (std::none_of(once.begin(), once.end(), [&](const Record& known) { return IsSame(known, row); }))
      once.push_back(row);
  return once;
}

std::vector<Column> ColumnsOf(const std::vector<Term>& items) {
  std::vector<Column> columns;
  for (const Term& item : items) columns.push_back({u"c"_s + QString::number(columns.size() + 1), item.type});
  return columns;
}

QString ListOf(const std::vector<Term>& items, bool named) {
  QStringList texts;
  for (const Term& item : items)
    texts << item.text + (named ? u" As c"_s + QString::number(texts.size() + 1) : QString());
  return texts.join(u',');
}

std::vector<Record> SortedByAll(std::vector<Record> rows) {
  std::stable_sort(rows.begin(), rows.end(), [](const Record& a, const Record& b) {
    return std::lexicographical_compare(a->begin(), a->end(), b->begin(), b->end(),
                                        [](const Value& x, const Value& y) { return CompareWithNulls(x, y) < 0; });
  });
  return rows;
}

}  // namespace

Maker::From Maker::AddSource(int depth) {
  const std::size_t frame = scope_.size();
  const QString alias = u"t"_s + QString::number(++aliases_);
  if (depth > 0 && OneIn(5)) {
    std::vector<Source> outer;
    outer.swap(scope_);
    const Query query = MakePlain(depth - 1, true);
    scope_ = std::move(outer);
    scope_.push_back({alias, query.columns, frame, false});
    return {u"("_s + query.text + u") As "_s + alias, [rows = query.rows](const Env& env) {
              std::vector<Env> all;
              for (const Record& record : rows({})) all.push_back(With(env, record));
              return all;
            }};
  }
  const Table* table = &OneOf(tables_);
  if (table == spared_) table = table == &tables_.front() ? &tables_.back() : &tables_.front();
  scope_.push_back({alias, table->columns, frame, true});
  return {table->name + (OneIn(2) ? u" "_s : u" As "_s) + alias, [table](const Env& env) {
            std::vector<Env> all;
            for (const Record& record : table->records) all.push_back(With(env, record));
            return all;
          }};
}

Maker::From Maker::MakeFrom(int depth) {
  const From first = AddSource(depth);
  if (!OneIn(3)) return first;
  const From second = AddSource(depth);
  static const std::vector<QString> joins{u","_s, u" Inner Join "_s, u" Left Join "_s, u" Right Outer Join "_s};
  const QString join = OneOf(joins);
  const bool isPlain = join == ","_L1, keepsLeft = join.startsWith(" Left"_L1),
             keepsRight = join.startsWith(" Right"_L1);
  const Condition on = isPlain ? Condition{QString(), [](const Env&) { return Truth(true); }} : MakeCondition(1);
  return {first.text + join + second.text + (isPlain ? QString() : u" On "_s + on.text), [=](const Env& env) {
            std::vector<Env> all;
            const std::vector<Env> lefts = first.rows(env), rights = second.rows(env);
            std::vector<bool> met(rights.size());
            for (const Env& left : lefts) {
              const std::size_t before = all.size();
              for (std::size_t i = 0; i < rights.size(); ++i) {
                const Env both = With(left, rights[i].back());
                if (!on.of(both).value_or(false)) continue;
                all.push_back(both);
                met[i] = true;
              }
              if (keepsLeft && all.size() == before) all.push_back(With(left, nullptr));
            }
            for (std::size_t i = 0; keepsRight && i < rights.size(); ++i)
              if (!met[i]) all.push_back(With(With(env, nullptr), rights[i].back()));
            return all;
          }};
}

/// Columns of the tables in sight, and their ids last, so that no two rows stand in the same place.
Maker::Ordering Maker::MakeOrdering() {
  Ordering ordering;
  QStringList texts;
  for (int count = Below(3); count > 0; --count)
    if (const auto column = FindColumn(Type(Below(4)))) ordering.terms.emplace_back(*column, OneIn(2));
  for (const Source& source : scope_) {
    ordering.terms.emplace_back(ColumnTerm(source, 0), OneIn(2));
  }
  for (const auto& [term, descending] : ordering.terms) texts << term.text + (descending ? u" Desc"_s : QString());
  ordering.text = u" Order By "_s + texts.join(u',');
  return ordering;
}

Query Maker::MakePlain(int depth, bool derived) {
  const std::size_t outer = scope_.size();
  const From from = MakeFrom(depth);
  const Condition where = MakeCondition(depth);
  std::vector<Term> items;
  for (int count = 1 + Below(3); count > 0; --count) items.push_back(MakeTerm(Type(Below(4)), depth));
  const bool allTables = std::all_of(scope_.begin(), scope_.end(), [](const Source& source) { return source.isTable; });
  Query query{ListOf(items, derived || OneIn(3)) + u" From "_s + from.text + u" Where "_s + where.text,
              ColumnsOf(items), nullptr};
  query.ordered = !derived && allTables && OneIn(2);
  const Ordering ordering = query.ordered ? MakeOrdering() : Ordering();
  const int top = query.ordered && OneIn(3) ? 1 + Below(4) : 0;
  query.text = (top ? u"Select Top "_s + QString::number(top) + u' ' : u"Select "_s) + query.text + ordering.text;
  query.rows = [=](const Env& env) {
    std::vector<Env> rows = Where(from.rows(env), where);
    std::stable_sort(rows.begin(), rows.end(), [&](const Env& a, const Env& b) {
      for (const auto& [term, descending] : ordering.terms)
        if (const int order = CompareWithNulls(term.of(a), term.of(b))) return (order < 0) != descending;
      return false;
    });
    std::vector<Record> shown;
    for (const Env& row : rows) shown.push_back(Shown(items, row));
    if (top > 0 && shown.size() > std::size_t(top)) shown.resize(std::size_t(top));
    return shown;
  };
  LeaveScope(outer);
  return query;
}

Query Maker::Distinct(const QString& text, const std::vector<Term>& items, const From& from, const Condition& where) {
  Query query{u"Select Distinct "_s + text, ColumnsOf(items), nullptr, OneIn(2), true};
  QStringList ordinals;
  for (std::size_t i = 1; i <= items.size(); ++i) ordinals << QString::number(i);
  if (query.ordered) query.text += u" Order By "_s + ordinals.join(u',');
  query.rows = [=](const Env& env) {
    std::vector<Record> shown;
    for (const Env& row : Where(from.rows(env), where)) shown.push_back(Shown(items, row));
    return SortedByAll(WithoutRepeats(shown));
  };
  return query;
}

Query Maker::MakeUnion(int depth) {
  std::vector<Type> types;
  for (int count = 1 + Below(2); count > 0; --count) types.push_back(Type(Below(4)));
  const bool all = OneIn(2), plain = !all && OneIn(3);
  std::vector<std::function<std::vector<Record>()>> parts;
  QStringList texts;
  std::vector<Column> columns;
  for (int count = plain ? 1 : 2; count > 0; --count) {
    const From from = MakeFrom(depth);
    const Condition where = MakeCondition(depth);
    std::vector<Term> items;
    // A column of days at the head of a union would cut the moments below it.
    for (const Type type : types) items.push_back(type == Type::Date ? MakeSomeDaysOff(depth) : MakeTerm(type, depth));
    const QString text = ListOf(items, OneIn(2)) + u" From "_s + from.text + u" Where "_s + where.text;
    LeaveScope(0);
    if (plain) return Distinct(text, items, from, where);
    columns = ColumnsOf(items);
    texts << u"Select "_s + text;
    parts.push_back([=] {
      std::vector<Record> shown;
      for (const Env& row : Where(from.rows({}), where)) shown.push_back(Shown(items, row));
      return shown;
    });
  }
  Query query{texts.join(all ? u" Union All "_s : u" Union "_s), columns, nullptr, OneIn(2), true};
  if (query.ordered) query.text += types.size() > 1 ? u" Order By 1,2"_s : u" Order By 1"_s;
  query.rows = [parts, all](const Env&) {
    std::vector<Record> rows;
    for (const auto& part : parts)
      for (const Record& row : part()) rows.push_back(row);
    return SortedByAll(all ? rows : WithoutRepeats(rows));
  };
  return query;
}

Query Maker::MakeStatement() {
  scope_.clear();
  const int depth = Below(4);
  switch (Below(6)) {
    case 0:
      return MakeUnion(depth);
    case 1:
      return MakeAggregate(depth);
    case 2:
      return MakeGrouped(depth);
    default:
      return MakePlain(depth, false);
  }
}

}  // namespace folvane::test::oracle
