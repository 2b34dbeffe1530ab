#include <gtest/gtest.h>

#include "data/persist/Utf16.h"

namespace folvane::test {
namespace {

QByteArray Utf8Of(const QString& text) {
  QByteArray utf8;
  Utf16ToUtf8(QByteArrayView(reinterpret_cast<const char*>(text.utf16()), text.size() * 2), utf8);
  return utf8;
}

TEST(Utf16, EveryCharacterBecomesTheBytesOfUtf8) {
  for (char32_t character = 1; character <= QChar::LastValidCodePoint; character += character < 0x3000 ? 1 : 61) {
    if (QChar::isSurrogate(character)) continue;
    const QString text = QString::fromUcs4(&character, 1);
    ASSERT_EQ(Utf8Of(text), text.toUtf8()) << std::uint32_t(character);
  }
}

TEST(Utf16, HalfACharacterIsShownByItsStandIn) {
  const QByteArray standIn = QString(QChar(QChar::ReplacementCharacter)).toUtf8();
  EXPECT_EQ(Utf8Of(QString(QChar(0xd83d))), standIn);
  EXPECT_EQ(Utf8Of(QString(QChar(0xde00)) + u'x'), standIn + "x");
  EXPECT_EQ(Utf8Of(QString(QChar(0xd83d)) + u'x'), standIn + "x");
}

}  // namespace
}  // namespace folvane::test
