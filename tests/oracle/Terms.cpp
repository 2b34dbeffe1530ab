// Terms of any type, and values for tables.
#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

Value Maker::MakeValue(const Column& column) {
  if (column.name == "id"_L1) return double(1 + Below(1000));
  if (OneIn(5)) return {};
  switch (column.type) {
    case Type::Text:
      if (!column.isDigits) return AnyText();
      return OneIn(6) ? QString() : (OneIn(5) ? u" "_s : QString()) + QString::number(Below(30) - 5);
    case Type::Integer:
      return double(Below(10) - 3);
    case Type::Decimal:
      return (Below(80) - 30) * 0.25;
    default:
      return column.name == "day"_L1 ? QDateTime(AnyMoment().date(), QTime(0, 0), Qt::UTC) : AnyMoment();
  }
}

Term Maker::ColumnTerm(const Source& source, std::size_t column) {
  const Column& info = source.columns[column];
  const bool alone = scope_.size() == 1 && OneIn(2);
  const QString name = OneIn(6) ? u"["_s + info.name + u"]"_s : OneIn(4) ? info.name.toUpper() : info.name;
  return {alone ? name : source.name + u"."_s + name, info.type,
          [frame = source.frame, column](const Env& env) { return env[frame] ? (*env[frame])[column] : Value(); }};
}

std::optional<Term> Maker::FindColumn(Type type, bool digits) {
  std::vector<std::pair<const Source*, std::size_t>> found;
  for (const Source& source : scope_)
    for (std::size_t column = 0; column < source.columns.size(); ++column)
      if (source.columns[column].type == type && (!digits || source.columns[column].isDigits))
        found.emplace_back(&source, column);
  if (found.empty()) return std::nullopt;
  const auto [source, column] = OneOf(found);
  return ColumnTerm(*source, column);
}

Term Maker::MakeTerm(Type type, int depth) {
  if (depth > 0 && OneIn(6)) return Choose(type, depth - 1);
  switch (type) {
    case Type::Text:
      return MakeText(depth);
    case Type::Integer:
      return MakeInteger(depth);
    case Type::Decimal:
      return MakeDecimal(depth);
    default:
      return MakeDate(depth);
  }
}

/// What gives one of several terms.
Term Maker::Choose(Type type, int depth) {
  const Term one = MakeTerm(type, depth), other = MakeTerm(type, depth);
  switch (Below(5)) {
    case 0:
      return {u"IsNull("_s + one.text + u","_s + other.text + u")"_s, type, [=](const Env& env) {
                const Value value = one.of(env);
                return IsNull(value) ? other.of(env) : value;
              }};
    case 1: {
      const Term third = MakeTerm(type, depth);
      return {u"Coalesce("_s + one.text + u","_s + other.text + u","_s + third.text + u")"_s, type,
              [=](const Env& env) {
                for (const Term* term : {&one, &other})
                  if (const Value value = term->of(env); !IsNull(value)) return value;
                return third.of(env);
              }};
    }
    case 2:
      return {u"NullIf("_s + one.text + u","_s + other.text + u")"_s, type, [=](const Env& env) -> Value {
                const Value a = one.of(env), b = other.of(env);
                return !IsNull(a) && !IsNull(b) && Compare(a, b) == 0 ? Value() : a;
              }};
    case 3: {
      const Term subject = MakeTerm(Type::Integer, depth), wanted = NumberLiteral(Type::Integer);
      return {u"Case "_s + subject.text + u" When "_s + wanted.text + u" Then "_s + one.text + u" Else "_s +
                  other.text + u" End"_s,
              type, [=](const Env& env) {
                const Value a = subject.of(env);
                return !IsNull(a) && Compare(a, wanted.of(env)) == 0 ? one.of(env) : other.of(env);
              }};
    }
    default: {
      const Condition condition = MakeCondition(depth);
      const bool hasElse = OneIn(2);
      return {u"Case When "_s + condition.text + u" Then "_s + one.text +
                  (hasElse ? u" Else "_s + other.text : QString()) + u" End"_s,
              type, [=](const Env& env) {
                if (condition.of(env).value_or(false)) return one.of(env);
                return hasElse ? other.of(env) : Value();
              }};
    }
  }
}

}  // namespace folvane::test::oracle
