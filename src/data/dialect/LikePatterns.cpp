#include "data/dialect/LikePatterns.h"

#include <QStringView>

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

void AppendRegexSign(QString& regex, QChar c) {
  if (u"\\^$.|?*+()[]{}-"_s.contains(c)) regex += u'\\';
  regex += c;
}

void AppendLiteral(LikePattern& read, QChar c) {
  if (c == u'%' || c == u'_' || c == kPatternEscape) read.native += QChar(kPatternEscape);
  read.native += c;
  AppendRegexSign(read.regex, c);
}

// The inside of brackets as a regular expression's class.
QString ClassToRegex(QStringView inner) {
  QString regex = u"["_s;
  if (inner.startsWith(u'^')) {
    regex += u'^';
    inner = inner.mid(1);
  }
  for (qsizetype i = 0; i < inner.size(); ++i) {
    const bool isRange = inner[i] == u'-' && i > 0 && i + 1 < inner.size();
    if (isRange)
      regex += u'-';
    else
      AppendRegexSign(regex, inner[i]);
  }
  return regex + u']';
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
