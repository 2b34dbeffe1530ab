#include "monkey/AwkwardTexts.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLong = 4000;

QStringList Marks() {
  return {u"'"_s,  u"''"_s,    u"it's"_s,  u"\""_s,    u"%"_s,      u"100%"_s, u"%1%2"_s,       u"_"_s,
          u"["_s,  u"]"_s,     u"[]"_s,    u"[[]"_s,   u"*"_s,      u"?"_s,    u"--"_s,         u";"_s,
          u"/*"_s, u"\\"_s,    u"a\\nb"_s, u"|"_s,     u","_s,      u"("_s,    u")"_s,          u"="_s,
          u"&"_s,  u"&amp;"_s, u"<b>粗"_s, u"{{A}}"_s, u"a\r\nb"_s, u"a\tb"_s, u"' Or '1'='1"_s};
}

QStringList Numbers() {
  return {u"0"_s,        u"-1"_s,       u"3.14"_s,       u"1e308"_s,      u"0x1F"_s,       u"99999999999999999999"_s,
          u"１２３"_s,   u"007"_s,      u"2026-11-20"_s, u"2026-02-30"_s, u"0000-00-00"_s, u"1899-12-30"_s,
          u"20261120"_s, u"20260000"_s, u"12:30"_s};
}

QStringList Words() {
  return {u"防汛通知"_s,
          u"关于印发《办法》的通知"_s,
          u"水函〔2026〕12号"_s,
          u"水函[2026]12号"_s,
          u"〔"_s,
          u"号"_s,
          u"是"_s,
          u"否"_s,
          u"(无)"_s,
          u"已归档"_s,
          u"null"_s,
          u"永久"_s,
          u"abc"_s,
          u"ABC"_s,
          u"ß"_s,
          u"İ"_s,
          u"Select"_s};
}

QStringList Unusual() {
  return {u" "_s,
          u"     "_s,
          u"　"_s,
          u"a "_s,
          u"😀"_s,
          u"👩‍👩‍👧"_s,
          u"𠀀𠀁"_s,
          u"e\u0301"_s,
          u"\u202E倒"_s,
          u"\uFFFD"_s,
          QString(kLong, u'长'),
          QString(kLong, u'x'),
          u"字'%[😀 "_s.repeated(kLong / 8)};
}

}  // namespace

const QStringList& AwkwardTexts() {
  static const QStringList texts = Marks() + Numbers() + Words() + Unusual();
  return texts;
}

}  // namespace folvane::test
