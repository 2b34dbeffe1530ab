// Terms that are texts.
#include "Maker.h"

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

namespace {

QString Quoted(QString text) { return u'\'' + text.replace(u"'"_s, u"''"_s) + u'\''; }

using TextFunction = std::function<QString(const QString&)>;

/// A function of one text; of null it is null.
Term OfText(const QString& before, const Term& inner, const QString& behind, TextFunction function) {
  return {before + inner.text + behind, Type::Text, [inner, function](const Env& env) -> Value {
            const Value value = inner.of(env);
            return IsNull(value) ? Value() : function(Text(value));
          }};
}

}  // namespace

QString Maker::AnyText() {
  static const std::vector<QString> texts{
      u""_s,   u"a"_s,   u"A"_s,   u"ab"_s,  u"AB "_s,  u"abc"_s, u"b"_s,    u" "_s,   u"a b"_s, u"%"_s,
      u"_"_s,  u"a%"_s,  u"[a]"_s, u"a_b"_s, u"文件"_s, u"文 "_s, u"it's"_s, u"10"_s,  u"9"_s,   u"a\\b"_s,
      u"!x"_s, u"a-c"_s, u"]"_s,   u"^"_s,   u" ab"_s,  u"〔2"_s, u"Z"_s,    u"a.c"_s, u"𠮷a"_s, u"b😀"_s};
  return OneOf(texts);
}

Term Maker::TextLiteral() {
  const QString text = AnyText();
  return {(OneIn(5) ? u"N"_s : QString()) + Quoted(text), Type::Text, [text](const Env&) { return Value(text); }};
}

Term Maker::MakeText(int depth) {
  const auto column = FindColumn(Type::Text);
  if (depth == 0 || OneIn(3)) return column && !OneIn(3) ? *column : TextLiteral();
  return OneIn(3) ? MakeTextOfOther(depth - 1) : MakeTextOfText(depth - 1);
}

Term Maker::MakeTextOfText(int depth) {
  const Term inner = MakeText(depth);
  const int count = Below(4), start = Below(4);
  const QString n = QString::number(count), s = QString::number(start);
  switch (Below(11)) {
    case 0:
      return OfText(u"Left("_s, inner, u","_s + n + u")"_s, [count](const QString& t) { return Left(t, count); });
    case 1:
      return OfText(u"Right("_s, inner, u","_s + n + u")"_s, [count](const QString& t) { return Right(t, count); });
    case 2:
      return OfText(u"SubString("_s, inner, u","_s + s + u","_s + n + u")"_s,
                    [=](const QString& t) { return SubString(t, start, count); });
    case 3:
      return OfText(u"Upper("_s, inner, u")"_s, [](const QString& t) { return Upper(t); });
    case 4:
      return OfText(u"lower("_s, inner, u")"_s, [](const QString& t) { return Lower(t); });
    case 5:
      return OfText(u"RTrim("_s, inner, u")"_s, [](const QString& t) { return WithoutTrailingBlanks(t); });
    case 6:
      return OfText(u"LTrim("_s, inner, u")"_s, [](QString t) {
        while (t.startsWith(u' ')) t.remove(0, 1);
        return t;
      });
    case 7: {
      const QString find = AnyText(), with = AnyText();
      return OfText(u"Replace("_s, inner, u","_s + Quoted(find) + u","_s + Quoted(with) + u")"_s,
                    [=](const QString& t) { return find.isEmpty() ? t : Replace(t, find, with); });
    }
    case 8:
      return OfText(u"Cast("_s, inner, u" As varchar("_s + QString::number(count + 1) + u"))"_s,
                    [count](const QString& t) { return Left(t, count + 1); });
    case 9:
      return OfText(u"Convert(char("_s + QString::number(count + 1) + u"),"_s, inner, u")"_s,
                    [count](const QString& t) { return Left(t + QString(count + 1, u' '), count + 1); });
    default: {
      const Term other = MakeText(depth);
      return {inner.text + u"+"_s + other.text, Type::Text, [=](const Env& env) -> Value {
                const Value a = inner.of(env), b = other.of(env);
                return IsNull(a) || IsNull(b) ? Value() : Text(a) + Text(b);
              }};
    }
  }
}

Term Maker::MakeTextOfOther(int depth) {
  switch (Below(4)) {
    case 0: {
      const Term number = MakeInteger(depth);
      const int width = 3 + Below(8);
      return {u"Str("_s + number.text + u","_s + QString::number(width) + u")"_s, Type::Text,
              [=](const Env& env) -> Value {
                const Value value = number.of(env);
                return IsNull(value) ? Value() : Str(Number(value), width, 0);
              }};
    }
    case 1: {
      const Term number = MakeInteger(depth);
      return {u"Convert(varchar(20),"_s + number.text + u")"_s, Type::Text, [=](const Env& env) -> Value {
                const Value value = number.of(env);
                return IsNull(value) ? Value() : AsText(value);
              }};
    }
    case 2: {
      static const std::vector<int> styles{101, 102, 108, 111, 112, 120};
      const Term date = MakeDate(depth);
      const int style = OneOf(styles);
      return {u"Convert(varchar(19),"_s + date.text + u","_s + QString::number(style) + u")"_s, Type::Text,
              [=](const Env& env) -> Value {
                const Value value = date.of(env);
                return IsNull(value) ? Value() : Formatted(style, Moment(value));
              }};
    }
    default: {
      const QString piece = AnyText();
      const int times = Below(3);
      return {u"Replicate("_s + Quoted(piece) + u","_s + QString::number(times) + u")+Space("_s +
                  QString::number(times) + u")"_s,
              Type::Text, [=](const Env&) { return Value(piece.repeated(times) + QString(times, u' ')); }};
    }
  }
}

/// A pattern with every sign that means something in one.
QString Maker::AnyPattern() {
  static const std::vector<QString> parts{
      u"%"_s,    u"_"_s, u"a"_s,     u"B"_s,   u"[a-c]"_s, u"[^a]"_s,  u"[A-c]"_s, u"[%]"_s, u"[_]"_s, u"[[]"_s,
      u"文"_s,   u" "_s, u"1"_s,     u"!"_s,   u"]"_s,     u"[0-9]"_s, u"[a-]"_s,  u"\\"_s,  u"."_s,   u"^"_s,
      u"[]a]"_s, u"["_s, u"[z-a]"_s, u"[^]"_s, u"[ -~]"_s, u"b%"_s,    u"%a"_s,    u"ab"_s};
  QString pattern;
  for (int count = Below(4); count >= 0; --count) pattern += OneOf(parts);
  return pattern;
}

}  // namespace folvane::test::oracle
