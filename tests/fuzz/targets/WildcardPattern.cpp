// A target of libFuzzer: a text is matched with a pattern of a proofing rule, one behind the other with a line break
// between, and agrees with a matcher that tries everything.
#include "base/WildcardPattern.h"

#include <cstdlib>

namespace {

using namespace folvane;

bool IsInList(QStringView list, QChar sign) {
  const bool negated = list.size() > 1 && list[0] == u'!';
  if (negated) list = list.mid(1);
  for (qsizetype at = 0; at < list.size(); ++at) {
    const bool isRange = at + 2 < list.size() && list[at + 1] == u'-';
    if (sign >= list[at] && sign <= (isRange ? list[at + 2] : list[at])) return !negated;
    if (isRange) at += 2;
  }
  return negated;
}

bool Matches(QStringView pattern, QStringView text) {
  if (pattern.isEmpty()) return text.isEmpty();
  if (pattern[0] == u'*') {
    for (qsizetype at = 0; at <= text.size(); ++at)
      if (Matches(pattern.mid(1), text.mid(at))) return true;
    return false;
  }
  const qsizetype close = pattern[0] == u'[' ? pattern.indexOf(u']') : 0;
  if (close == 1) return Matches(pattern.mid(2), text);
  if (text.isEmpty()) return false;
  const bool isDigit = text[0] >= u'0' && text[0] <= u'9';
  const bool fits = close > 0            ? IsInList(pattern.mid(1, close - 1), text[0])
                    : pattern[0] == u'#' ? isDigit
                                         : pattern[0] == u'?' || pattern[0] == text[0];
  return fits && Matches(pattern.mid(close + 1), text.mid(1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString input = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
  const QString pattern = input.section(u'\n', 0, 0), text = input.section(u'\n', 1);
  try {
    const bool matches = WildcardPattern(pattern).Matches(text);
    if (pattern.size() > 16 || text.size() > 24 || pattern.count(u'*') > 4) return 0;
    if (matches != Matches(pattern, text)) std::abort();
  } catch (const PatternError&) {
    // what is to happen to many of them
  }
  return 0;
}
