#include "data/dialect/LikePatterns.h"

#include <QList>
#include <QStringView>

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

char32_t Folded(char32_t sign) { return sign >= U'A' && sign <= U'Z' ? sign + 32 : sign; }

bool IsRegexSign(char32_t sign) { return sign < 0x80 && u"\\^$.|?*+()[]{}-=:"_s.contains(QChar(char16_t(sign))); }

void AppendRegexSign(QString& regex, char32_t sign) {
  if (IsRegexSign(sign)) regex += u'\\';
  regex += QString::fromUcs4(&sign, 1);
}

void AppendLiteral(LikePattern& read, QChar c) {
  if (c == u'%' || c == u'_' || c == kPatternEscape) read.native += QChar(kPatternEscape);
  read.native += c;
  if (IsRegexSign(c.unicode())) read.regex += u'\\';
  read.regex += QChar(char16_t(Folded(c.unicode())));
}

// The inside of brackets as a regular expression's class. A range that runs downwards holds nothing. Its ends are small
// letters as the text will be: [9-A] holds "a" but not "b", which a match without regard to case would let in.
QString ClassToRegex(QStringView inner) {
  const bool negated = inner.size() > 1 && inner.front() == u'^';
  const QList<uint> signs = inner.mid(negated ? 1 : 0).toUcs4();
  QString ranges;
  for (qsizetype i = 0; i < signs.size(); ++i) {
    const bool isRange = i + 2 < signs.size() && signs[i + 1] == u'-';
    const char32_t low = Folded(signs[i]), high = isRange ? Folded(signs[i + 2]) : low;
    if (isRange) i += 2;
    if (low > high) continue;
    AppendRegexSign(ranges, low);
    if (!isRange) continue;
    ranges += u'-';
    AppendRegexSign(ranges, high);
  }
  if (ranges.isEmpty()) return negated ? u"."_s : u"(?!)"_s;
  return (negated ? u"[^"_s : u"["_s) + ranges + u']';
}

}  // namespace

LikePattern ReadPattern(const QString& pattern, QChar escape) {
  LikePattern read;
  for (qsizetype i = 0; i < pattern.size(); ++i) {
    const QChar c = pattern[i];
    if (!escape.isNull() && c == escape && i + 1 < pattern.size()) {
      AppendLiteral(read, pattern[++i]);
    } else if (c == u'%') {
      read.native += c;
      read.regex += u".*"_s;
    } else if (c == u'_') {
      read.native += c;
      read.regex += u'.';
    } else if (c == u'[') {
      // The first sign inside is never the closing one. A bracket that is never closed lets nothing match.
      const qsizetype close = pattern.indexOf(u']', i + 2);
      const QStringView inner = close < 0 ? QStringView() : QStringView(pattern).mid(i + 1, close - i - 1);
      if (close < 0) {
        read.hasClass = true;
        read.regex += u"(?!)"_s;
        return read;
      }
      if (inner.size() == 1 && inner[0] != u'^') {
        AppendLiteral(read, inner[0]);
      } else {
        read.hasClass = true;
        read.regex += ClassToRegex(inner);
      }
      i = close;
    } else {
      AppendLiteral(read, c);
    }
  }
  return read;
}

QString RegexOf(const LikePattern& pattern) { return u"^(?:%1) *$"_s.arg(pattern.regex); }

}  // namespace folvane::sql
