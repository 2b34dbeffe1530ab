#include "injection/HostileTexts.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

const QStringList& HostileTexts() {
  static const QStringList texts{
      u"'"_s,
      u"''"_s,
      u"x' or '1'='1"_s,
      u"x') or (1=1"_s,
      u"x',Note='y"_s,
      u"x' -- "_s,
      u"x' where 1=1 or 'a'='a"_s,
      u"'; delete from Canary; --"_s,
      u"'; drop table Canary; select '"_s,
      u"' delete from Canary select '"_s,
      u"' /* "_s,
      u"*/ '"_s,
      u"' union select Name from Canary --"_s,
      u"\\'; delete from Canary; --"_s,
      u"$$; delete from Canary; $$"_s,
      u"E'\\' or 1=1"_s,
      u"]; delete from Canary; --"_s,
      u"[a-z]%_"_s,
      u"%1 %2 %s %n"_s,
      u"{{#ROWS}}{{Title}}"_s,
      u"{{>canary.txt}}{{!x}}"_s,
      u"<script>alert(1)</script><img src=file:///etc/passwd>"_s,
      u"<a href='file:///etc/passwd'>x</a><br>"_s,
      u"file:///etc/passwd"_s,
      u"../../canary.txt"_s,
      u"..\\..\\canary.txt"_s,
      u"| touch canary.txt; `touch canary.txt` $(touch canary.txt)"_s,
      u"a\r\nb"_s,
      u"a"_s + QChar(0) + u'b',
      u"＇ or ＇1＇=＇1"_s,
      u"‘’“”"_s,
      u"\u202egpj.exe\u202c\u200f"_s,
      u"\U0001F4C1é𠀀ÿ"_s,
      QString(QChar(0xd800)) + u"x"_s,
      u"@a@b@"_s,
      u"=1+1;&x"_s,
      QString(5000, u'\''),
  };
  return texts;
}

QStringList HostileLines(int mostLetters) {
  QStringList lines;
  for (const QString& text : HostileTexts())
    if (text.size() <= mostLetters && text.isValidUtf16() && !text.contains(u'\n') && !text.contains(QChar(0)))
      lines << text;
  return lines;
}

QStringList SomeHostileLines(int mostLetters) {
  constexpr int kShares = 6;
  static int calls = 0;
  const QStringList all = HostileLines(mostLetters);
  if (qEnvironmentVariableIsSet("FOLVANE_SOAK")) return all;
  QStringList some;
  for (qsizetype at = calls++ % kShares; at < all.size(); at += kShares) some << all[at];
  return some;
}

}  // namespace folvane::test
