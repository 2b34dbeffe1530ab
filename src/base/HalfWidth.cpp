#include "base/HalfWidth.h"

namespace folvane {

QString ToHalfWidth(const QString& text) {
  // The block Fullwidth Forms holds ! to ~ in the order of ASCII; the blank stands apart.
  constexpr char16_t kFirst = 0xff01, kLast = 0xff5e, kBlank = 0x3000;
  QString result = text;
  for (QChar& letter : result) {
    const char16_t code = letter.unicode();
    if (code == kBlank) letter = u' ';
    if (code >= kFirst && code <= kLast) letter = QChar(char16_t(code - kFirst + u'!'));
  }
  return result;
}

}  // namespace folvane
