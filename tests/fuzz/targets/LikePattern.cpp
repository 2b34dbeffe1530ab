// A target of libFuzzer: a text is matched with a Like pattern, one behind the other with a line break between, in all
// the ways the library has. All agree with a matcher that tries everything.
#include <QRegularExpression>
#include <cstdlib>

#include "data/dialect/LikePatterns.h"
#include "data/drivers/sqlite/LikeMatcher.h"
#include "oracle/PlainLike.h"

namespace {

using namespace folvane;
using test::oracle::IsLike;
using test::oracle::Small;

/// A pattern of the other databases' own Like, with their escape sign.
bool MatchesNative(QStringView pattern, QStringView text) {
  if (pattern.isEmpty()) return text.isEmpty();
  if (pattern[0] == u'%') {
    for (qsizetype at = 0; at <= text.size(); ++at)
      if (MatchesNative(pattern.mid(1), text.mid(at))) return true;
    return false;
  }
  const bool escaped = pattern[0] == sql::kPatternEscape;
  if (escaped) pattern = pattern.mid(1);
  if (text.isEmpty() || pattern.isEmpty()) return false;
  return ((!escaped && pattern[0] == u'_') || Small(pattern[0].unicode()) == Small(text[0].unicode())) &&
         MatchesNative(pattern.mid(1), text.mid(1));
}

bool IsPlain(const QString& text) {
  for (const QChar c : text)
    if (c.isSurrogate() || c == u'\ufffd') return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray both(reinterpret_cast<const char*>(data), qsizetype(size));
  LikeMatcher(both.left(both.size() / 2), U'!').Matches(both);  // broken sequences too
  const QString input = QString::fromUtf8(both);
  const QString pattern = input.section(u'\n', 0, 0), text = input.section(u'\n', 1);
  if (pattern.size() > 16 || text.size() > 24 || pattern.count(u'%') > 4 || !IsPlain(input)) return 0;
  const bool expected = IsLike(text.toStdU32String(), pattern.toStdU32String());
  const sql::LikePattern read = sql::ReadPattern(pattern);
  if (LikeMatcher(pattern.toUtf8()).Matches(text.toUtf8()) != expected) std::abort();
  const QRegularExpression regex(QRegularExpression::anchoredPattern(sql::RegexOf(read)),
                                 QRegularExpression::DotMatchesEverythingOption);
  QString small = text;
  for (QChar& c : small) c = QChar(char16_t(Small(c.unicode())));
  if (!regex.isValid() || regex.match(small).hasMatch() != expected) std::abort();
  if (read.hasClass || text.endsWith(u' ') || pattern.endsWith(u' ')) return 0;
  if (MatchesNative(read.native, text) != expected) std::abort();
  return 0;
}
