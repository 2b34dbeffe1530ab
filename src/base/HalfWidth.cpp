#include "base/HalfWidth.h"

namespace folvane {
namespace {

// The block Fullwidth Forms holds ! to ~ in the order of ASCII; the blank stands apart.
constexpr char16_t kFirst = 0xff01, kLast = 0xff5e, kBlank = 0x3000;
constexpr char16_t kOffset = kFirst - u'!';

}  // namespace

QString ToHalfWidth(const QString& text) {
  QString result = text;
  for (QChar& letter : result) {
    const char16_t code = letter.unicode();
    if (code == kBlank) letter = u' ';
    if (code >= kFirst && code <= kLast) letter = QChar(char16_t(code - kOffset));
  }
  return result;
}

QString ToFullWidth(const QString& text) {
  QString result = text;
  for (QChar& letter : result) {
    const char16_t code = letter.unicode();
    if (code == u' ') letter = QChar(kBlank);
    if (code >= u'!' && code <= u'~') letter = QChar(char16_t(code + kOffset));
  }
  return result;
}

}  // namespace folvane
