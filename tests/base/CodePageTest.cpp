#include <gtest/gtest.h>

#include "base/CodePage.h"
#include "support/QtPrinting.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(CodePage, ChineseTakesTwoBytesAndAsciiOne) {
  EXPECT_EQ(ToCodePage(u"A文"_s), QByteArray("A\xCE\xC4"));
  EXPECT_EQ(ByteLength(u"A文件"_s), 5);
  EXPECT_EQ(ByteLength(u""_s), 0);
}

TEST(CodePage, ReadsBackWhatItWrote) {
  const QString text = u"发文〔2002〕12号，“归档”——①㎡"_s;
  EXPECT_EQ(FromCodePage(ToCodePage(text)), text);
}

TEST(CodePage, ACharacterOutsideBecomesAQuestionMark) {
  EXPECT_EQ(ToCodePage(u"aéñb"_s), QByteArray("a\xA8\xA6?b"));  // é is a letter of pinyin, ñ is none
  EXPECT_FALSE(FitsCodePage(u"ñ"_s));
  EXPECT_TRUE(FitsCodePage(u"é文A"_s));
}

TEST(CodePage, ACharacterOfTwoUnitsBecomesOneQuestionMark) {
  EXPECT_EQ(ToCodePage(u"文\U00020000件"_s), QByteArray("\xCE\xC4?\xBC\xFE"));
  EXPECT_EQ(ToCodePage(u"\U0001F600"_s), QByteArray("?"));
}

TEST(CodePage, HalfACharacterIsReadAsAReplacement) {
  EXPECT_EQ(FromCodePage("\xCE\xC4\xBC"), u"文\uFFFD"_s);
  EXPECT_EQ(FromCodePage(""), QString());
}

TEST(FitsByteLength, CountsAsByteLengthDoes) {
  for (const QString& text : {u""_s, u"ABCDE"_s, u"文件A"_s, u"ññññ"_s, u"\U00020000文"_s}) {
    const int length = ByteLength(text);
    EXPECT_TRUE(FitsByteLength(text, length)) << text.toStdString();
    EXPECT_TRUE(FitsByteLength(text, 1000)) << text.toStdString();
    EXPECT_FALSE(FitsByteLength(text, length - 1)) << text.toStdString();
  }
}

TEST(LimitByteLength, ATextThatFitsStaysAsItIs) {
  EXPECT_EQ(LimitByteLength(u"文件"_s, 4), u"文件"_s);
  EXPECT_EQ(LimitByteLength(u""_s, 0), QString());
}

TEST(LimitByteLength, AnOddLimitLeavesOneByteOfTwoByteTextUnused) {
  EXPECT_EQ(LimitByteLength(u"文件登记"_s, 5), u"文件"_s);
  EXPECT_EQ(LimitByteLength(u"文件登记"_s, 1), QString());
}

TEST(LimitByteLength, FillsTheLimitWhereCharactersAllow) {
  EXPECT_EQ(LimitByteLength(u"文件A登记"_s, 5), u"文件A"_s);
  EXPECT_EQ(LimitByteLength(u"ABCDEF"_s, 5), u"ABCDE"_s);
  EXPECT_EQ(LimitByteLength(u"A文件"_s, 3), u"A文"_s);
}

TEST(LimitByteLength, NothingFitsALimitOfNoneOrLess) {
  EXPECT_EQ(LimitByteLength(u"文"_s, 0), QString());
  EXPECT_EQ(LimitByteLength(u"文"_s, -1), QString());
}

TEST(LimitByteLength, CutsOutsideCharactersWhole) {
  EXPECT_EQ(LimitByteLength(u"\U00020000文件"_s, 2), u"\U00020000"_s);  // one byte, then a straddling one
  EXPECT_EQ(LimitByteLength(u"\U00020000文件"_s, 3), u"\U00020000文"_s);
}

}  // namespace
}  // namespace folvane
