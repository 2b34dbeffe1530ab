// Terms that are numbers, and dates.
#include <cmath>

#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

namespace {

const std::vector<QString>& Parts() {
  static const std::vector<QString> parts{u"year"_s, u"quarter"_s, u"month"_s,  u"week"_s,
                                          u"day"_s,  u"hour"_s,    u"minute"_s, u"second"_s};
  return parts;
}

Term OfNumber(const QString& before, const Term& inner, const QString& behind, std::function<double(double)> function) {
  return {before + inner.text + behind, inner.type, [inner, function](const Env& env) -> Value {
            const Value value = inner.of(env);
            return IsNull(value) ? Value() : function(Number(value));
          }};
}

Term OfTwo(const Term& left, const QString& op, const Term& right, std::function<double(double, double)> function) {
  return {u"("_s + left.text + op + right.text + u")"_s, std::max(left.type, right.type), [=](const Env& env) -> Value {
            const Value a = left.of(env), b = right.of(env);
            return IsNull(a) || IsNull(b) ? Value() : function(Number(a), Number(b));
          }};
}

template <typename Inner, typename Function>
Term Counted(const QString& text, Inner inner, Function function) {
  return {text, Type::Integer, [=](const Env& env) -> Value {
            const Value value = inner.of(env);
            return IsNull(value) ? Value() : double(function(value));
          }};
}

}  // namespace

Term Maker::NumberLiteral(Type type) {
  const double number = type == Type::Integer ? Below(12) - 3 : (Below(60) - 20) * 0.25;
  const QString text = QString::number(number, 'f', type == Type::Integer ? 0 : 2);
  return {number < 0 ? u"("_s + text + u")"_s : text, type, [number](const Env&) { return Value(number); }};
}

Term Maker::MakeInteger(int depth) {
  const auto column = FindColumn(Type::Integer);
  if (depth == 0 || OneIn(3)) return column && !OneIn(3) ? *column : NumberLiteral(Type::Integer);
  if (OneIn(2)) return MakeCount(depth - 1);
  const Term inner = MakeInteger(depth - 1);
  const int divisor = OneIn(2) ? 2 + Below(3) : -2;
  const QString by = QString::number(divisor);
  switch (Below(8)) {
    case 0:
      return OfTwo(inner, u"+"_s, MakeInteger(depth - 1), std::plus<>());
    case 1:
      return OfTwo(inner, u"-"_s, MakeInteger(depth - 1), std::minus<>());
    case 2:
      return OfNumber(u"("_s, inner, u"*"_s + by + u")"_s, [=](double n) { return n * divisor; });
    case 3:
      return OfNumber(u"("_s, inner, u"/"_s + by + u")"_s, [=](double n) { return std::trunc(n / divisor); });
    case 4:
      return OfNumber(u"("_s, inner, u"%"_s + by + u")"_s, [=](double n) { return std::fmod(n, divisor); });
    case 5:
      return OfNumber(u"Abs("_s, inner, u")"_s, [](double n) { return std::abs(n); });
    case 6:
      return OfNumber(u"Sign("_s, inner, u")"_s, [](double n) { return double(n > 0) - double(n < 0); });
    default:
      return OfNumber(u"Round("_s, inner, u",-1)"_s, [](double n) { return Rounded(n, -1); });
  }
}

Term Maker::MakeCount(int depth) {
  switch (Below(6)) {
    case 0: {
      const Term text = MakeText(depth);
      return Counted(u"Len("_s + text.text + u")"_s, text,
                     [](const Value& value) { return Length(WithoutTrailingBlanks(Text(value))); });
    }
    case 1: {
      const Term text = MakeText(depth), find = TextLiteral();
      const int from = Below(3);
      return Counted(u"CharIndex("_s + find.text + u","_s + text.text + u","_s + QString::number(from) + u")"_s, text,
                     [=](const Value& value) { return CharIndex(Text(find.of({})), Text(value), from); });
    }
    case 2: {
      const Term date = MakeDate(depth);
      const QString part = OneIn(4) ? u"dayofyear"_s : OneIn(4) ? u"weekday"_s : OneOf(Parts());
      return Counted(u"DatePart("_s + part + u","_s + date.text + u")"_s, date,
                     [=](const Value& value) { return DatePart(part, Moment(value)); });
    }
    case 3: {
      const Term from = MakeDate(depth), to = MakeDate(depth);
      const QString part = OneOf(Parts());
      return {u"DateDiff("_s + part + u","_s + from.text + u","_s + to.text + u")"_s, Type::Integer,
              [=](const Env& env) -> Value {
                const Value a = from.of(env), b = to.of(env);
                return IsNull(a) || IsNull(b) ? Value() : DateDiff(part, Moment(a), Moment(b));
              }};
    }
    case 4:
      if (const auto digits = FindColumn(Type::Text, true))
        return Counted(u"Cast("_s + digits->text + u" As int)"_s, *digits,
                       [](const Value& value) { return WholeNumber(Text(value)); });
      [[fallthrough]];
    default: {
      const Term text = MakeText(depth);
      return {u"IsNumeric("_s + text.text + u")"_s, Type::Integer, [=](const Env& env) {
                const Value value = text.of(env);
                return Value(!IsNull(value) && IsNumeric(Text(value)) ? 1.0 : 0.0);
              }};
    }
  }
}

Term Maker::MakeDecimal(int depth) {
  const auto column = FindColumn(Type::Decimal);
  if (depth == 0 || OneIn(3)) return column && !OneIn(3) ? *column : NumberLiteral(Type::Decimal);
  const Term inner = MakeDecimal(depth - 1);
  switch (Below(7)) {
    case 0:
      return OfTwo(inner, u"+"_s, MakeTerm(OneIn(2) ? Type::Decimal : Type::Integer, depth - 1), std::plus<>());
    case 1:
      return OfTwo(MakeTerm(OneIn(2) ? Type::Decimal : Type::Integer, depth - 1), u"-"_s, inner, std::minus<>());
    case 2:
      return OfNumber(u"("_s, inner, u"/2)"_s, [](double n) { return n / 2; });
    case 3:
      // Tenths are no binary fractions: SQLite, which has no others, tells two ways to the same one apart.
      return OfNumber(u"Round("_s, inner, u",0)"_s, [](double n) { return Rounded(n, 0); });
    case 4:
      return OfNumber(u"Floor("_s, inner, u")"_s, [](double n) { return std::floor(n); });
    case 5:
      return OfNumber(u"Ceiling("_s, inner, u")"_s, [](double n) { return std::ceil(n); });
    default:
      return OfNumber(u"Abs("_s, inner, u")"_s, [](double n) { return std::abs(n); });
  }
}

QDateTime Maker::AnyMoment() {
  static const std::vector<QDateTime> moments{MomentOf(2002, 3, 4),   MomentOf(2002, 3, 4, 10, 20, 30),
                                              MomentOf(2002, 12, 31), MomentOf(1999, 2, 28, 23, 59, 59),
                                              MomentOf(2004, 2, 29),  MomentOf(2003, 1, 5),
                                              MomentOf(2002, 1, 31),  MomentOf(2003, 1, 1, 0, 0, 1)};
  return OneOf(moments);
}

Term Maker::MakeDateText(const QDateTime& moment) {
  static const std::vector<QString> forms{u"yyyy-MM-dd"_s, u"yyyyMMdd"_s, u"yyyy/M/d"_s, u"M/d/yyyy"_s};
  const bool midnight = moment.time() == QTime(0, 0);
  const QString time = midnight ? QString() : u" HH:mm:ss"_s;
  return {u"'"_s + moment.toString(OneOf(forms) + time) + u"'"_s, Type::Date,
          [moment](const Env&) { return Value(moment); }};
}

Term Maker::MakeSomeDaysOff(int depth) {
  const Term inner = MakeDate(depth);
  const int count = Below(40) - 15;
  const QString sum = count < 0 ? u"-"_s + QString::number(-count) : u"+"_s + QString::number(count);
  return {u"("_s + inner.text + sum + u")"_s, Type::Date, [=](const Env& env) -> Value {
            const Value value = inner.of(env);
            return IsNull(value) ? Value() : Moment(value).addDays(count);
          }};
}

Term Maker::MakeDate(int depth) {
  const auto column = FindColumn(Type::Date);
  if (column && (depth == 0 || OneIn(2))) return *column;
  const QDateTime moment = AnyMoment();
  if (depth == 0) {
    const Term text = MakeDateText(moment);
    return {OneIn(2) ? u"Cast("_s + text.text + u" As datetime)"_s : u"Convert(datetime,"_s + text.text + u")"_s,
            Type::Date, text.of};
  }
  const Term inner = MakeDate(depth - 1);
  const QString part = OneOf(Parts());
  const int count = Below(40) - 15;
  if (OneIn(3)) return MakeSomeDaysOff(depth - 1);
  return {u"DateAdd("_s + part + u","_s + QString::number(count) + u","_s + inner.text + u")"_s, Type::Date,
          [=](const Env& env) -> Value {
            const Value value = inner.of(env);
            return IsNull(value) ? Value() : DateAdd(part, count, Moment(value));
          }};
}

}  // namespace folvane::test::oracle
