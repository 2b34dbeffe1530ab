// Conditions.
#include "Maker.h"
#include "PlainLike.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

namespace {

bool Holds(const QString& op, int order) {
  if (op == "="_L1) return order == 0;
  if (op == "<>"_L1) return order != 0;
  if (op == "<"_L1) return order < 0;
  if (op == "<="_L1) return order <= 0;
  return op == ">"_L1 ? order > 0 : order >= 0;
}

Condition Negated(const Condition& condition) {
  return {u"Not "_s + condition.text, [condition](const Env& env) { return Not(condition.of(env)); }};
}

Truth Equal(const Value& a, const Value& b) {
  return IsNull(a) || IsNull(b) ? std::nullopt : Truth(Compare(a, b) == 0);
}

const std::vector<QString>& Operators() {
  static const std::vector<QString> operators{u"="_s, u"<>"_s, u"<"_s, u"<="_s, u">"_s, u">="_s};
  return operators;
}

}  // namespace

Condition Maker::MakeCondition(int depth) {
  if (depth == 0 || OneIn(3)) return MakePredicate(depth);
  const Condition one = MakeCondition(depth - 1);
  if (OneIn(4)) return Negated({u"("_s + one.text + u")"_s, one.of});
  const Condition other = MakeCondition(depth - 1);
  const bool both = OneIn(2);
  return {u"("_s + one.text + (both ? u" And "_s : u" or "_s) + other.text + u")"_s,
          [=](const Env& env) { return both ? And(one.of(env), other.of(env)) : Or(one.of(env), other.of(env)); }};
}

Condition Maker::MakePredicate(int depth) {
  switch (Below(depth > 0 ? 12 : 9)) {
    case 0:
    case 1:
      return MakeLike(depth);
    case 2:
      return MakeBetween(depth);
    case 3:
      return MakeInList(depth);
    case 4: {
      const Term term = MakeTerm(Type(Below(4)), depth);
      const bool wanted = OneIn(2);
      return {term.text + (wanted ? u" Is Null"_s : u" Is Not Null"_s),
              [=](const Env& env) { return Truth(IsNull(term.of(env)) == wanted); }};
    }
    case 5:
      return MixedComparison(depth);
    case 9:
      return MakeExists(depth - 1);
    case 10:
      return MakeInQuery(depth - 1);
    default:
      return MakeComparison(depth);
  }
}

Condition Maker::Compared(const Term& left, const QString& op, const Term& right) {
  return {left.text + op + right.text, [=](const Env& env) -> Truth {
            const Value a = left.of(env), b = right.of(env);
            return IsNull(a) || IsNull(b) ? std::nullopt : Truth(Holds(op, Compare(a, b)));
          }};
}

Condition Maker::MakeComparison(int depth) {
  const Type type = Type(Below(4));
  const Term left = MakeTerm(type, depth);
  const Type other = type == Type::Integer && OneIn(4) ? Type::Decimal : type;
  return Compared(left, OneOf(Operators()), MakeTerm(other, depth));
}

/// A number or a date beside a text that stands for one.
Condition Maker::MixedComparison(int depth) {
  const QString op = OneOf(Operators());
  if (OneIn(2)) {
    const Term date = MakeDate(depth), text = MakeDateText(AnyMoment());
    return OneIn(3) ? Compared(text, op, date) : Compared(date, op, text);
  }
  const auto digits = FindColumn(Type::Text, true);
  if (digits && OneIn(2)) {
    const Term number{digits->text, Type::Integer, [of = digits->of](const Env& env) -> Value {
                        const Value value = of(env);
                        return IsNull(value) ? Value() : WholeNumber(Text(value));
                      }};
    return Compared(number, op, MakeInteger(depth));
  }
  const int number = Below(12) - 3;
  const QString quoted = u"'"_s + (OneIn(5) ? u" "_s : QString()) + QString::number(number) + u"'"_s;
  return Compared(MakeInteger(depth), op,
                  {quoted, Type::Integer, [number](const Env&) { return Value(double(number)); }});
}

Condition Maker::MakeLike(int depth) {
  const Type type = OneIn(6) ? (OneIn(2) ? Type::Integer : Type::Date) : Type::Text;
  const Term subject = MakeTerm(type, depth);
  const QString pattern = type == Type::Text ? AnyPattern() : type == Type::Date ? u"2002-%"_s : u"%1%"_s;
  const bool negated = OneIn(4), escapes = OneIn(8);
  const QString text = QString(pattern).replace(u"'"_s, u"''"_s);
  return {subject.text + (negated ? u" Not Like '"_s : u" Like '"_s) + text + u"'"_s +
              (escapes ? u" Escape '!'"_s : QString()),
          [=](const Env& env) -> Truth {
            const Value value = subject.of(env);
            if (IsNull(value)) return std::nullopt;
            return IsLike(AsText(value).toStdU32String(), pattern.toStdU32String(), escapes ? U'!' : 0) != negated;
          }};
}

Condition Maker::MakeBetween(int depth) {
  const Type type = Type(Below(4));
  const Term subject = MakeTerm(type, depth), low = MakeTerm(type, depth), high = MakeTerm(type, depth);
  const bool negated = OneIn(4);
  const Condition from = Compared(subject, u">="_s, low), to = Compared(subject, u"<="_s, high);
  return {subject.text + (negated ? u" Not Between "_s : u" Between "_s) + low.text + u" And "_s + high.text,
          [=](const Env& env) {
            const Truth within = And(from.of(env), to.of(env));
            return negated ? Not(within) : within;
          }};
}

Condition Maker::MakeInList(int depth) {
  const Type type = Type(Below(4));
  const Term subject = MakeTerm(type, depth);
  std::vector<Term> list;
  QStringList texts;
  for (int count = 1 + Below(4); count > 0; --count) {
    const bool plain = OneIn(2);
    list.push_back(plain && type == Type::Text ? TextLiteral() : MakeTerm(type, plain ? 0 : depth));
    if (plain && type == Type::Date) list.back() = MakeDateText(AnyMoment());
    texts << list.back().text;
  }
  const bool negated = OneIn(3);
  return {subject.text + (negated ? u" Not In ("_s : u" In ("_s) + texts.join(u',') + u")"_s, [=](const Env& env) {
            Truth found = false;
            for (const Term& one : list) found = Or(found, Equal(subject.of(env), one.of(env)));
            return negated ? Not(found) : found;
          }};
}

Condition Maker::MakeInQuery(int depth) {
  const std::size_t outer = scope_.size();
  const Type type = Type(Below(4));
  const Term subject = MakeTerm(type, depth);
  const From from = MakeFrom(0);
  const Condition where = MakeCondition(depth);
  const Term item = MakeTerm(type, 0);
  LeaveScope(outer);
  const bool negated = OneIn(3);
  return {subject.text + (negated ? u" Not In (Select "_s : u" In (Select "_s) + item.text + u" From "_s + from.text +
              u" Where "_s + where.text + u")"_s,
          [=](const Env& env) {
            Truth found = false;
            for (const Env& row : from.rows(env))
              if (where.of(row).value_or(false)) found = Or(found, Equal(subject.of(env), item.of(row)));
            return negated ? Not(found) : found;
          }};
}

Condition Maker::MakeExists(int depth) {
  const std::size_t outer = scope_.size();
  const From from = MakeFrom(0);
  const Condition where = MakeCondition(depth);
  LeaveScope(outer);
  return {u"Exists (Select 1 From "_s + from.text + u" Where "_s + where.text + u")"_s, [=](const Env& env) {
            for (const Env& row : from.rows(env))
              if (where.of(row).value_or(false)) return Truth(true);
            return Truth(false);
          }};
}

}  // namespace folvane::test::oracle
