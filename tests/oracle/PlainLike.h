#pragma once

#include <QString>

namespace folvane::test::oracle {

// Like of the language, by trying everything.

inline char16_t Small(QChar c) { return c >= u'A' && c <= u'Z' ? char16_t(c.unicode() + 32) : c.unicode(); }

inline bool IsInLikeClass(QStringView inner, char16_t sign) {
  const bool negated = inner.size() > 1 && inner[0] == u'^';
  if (negated) inner = inner.mid(1);
  for (qsizetype at = 0; at < inner.size(); ++at) {
    const bool isRange = at + 2 < inner.size() && inner[at + 1] == u'-';
    const char16_t low = Small(inner[at]), high = isRange ? Small(inner[at + 2]) : low;
    if (sign >= low && sign <= high) return !negated;
    if (isRange) at += 2;
  }
  return negated;
}

/// Blanks at the text's end that the pattern does not ask for are passed over.
inline bool IsLike(QStringView text, QStringView pattern, QChar escape = {}) {
  if (pattern.isEmpty()) return text.count(u' ') == text.size();
  const QChar sign = pattern[0];
  if (!escape.isNull() && sign == escape && pattern.size() > 1)
    return !text.isEmpty() && Small(text[0]) == Small(pattern[1]) && IsLike(text.mid(1), pattern.mid(2), escape);
  if (sign == u'%') {
    for (qsizetype at = 0; at <= text.size(); ++at)
      if (IsLike(text.mid(at), pattern.mid(1), escape)) return true;
    return false;
  }
  const qsizetype close = sign == u'[' ? pattern.indexOf(u']', 2) : 0;
  if (close < 0 || text.isEmpty()) return false;
  const bool fits = sign == u'[' ? IsInLikeClass(pattern.mid(1, close - 1), Small(text[0]))
                                 : sign == u'_' || Small(sign) == Small(text[0]);
  return fits && IsLike(text.mid(1), pattern.mid(close + 1), escape);
}

}  // namespace folvane::test::oracle
