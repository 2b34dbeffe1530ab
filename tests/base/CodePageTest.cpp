#include <gtest/gtest.h>

#include <folvane/DataError.h>

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

TEST(CodePage, AByteOfEightyIsTheEuroSignAsOnWindows) { EXPECT_EQ(FromCodePage("\x80\xff"), u"€\uFFFD"_s); }

TEST(CodePage, Utf8IsTurnedIntoBytesOrRefused) {
  QByteArray bytes;
  EXPECT_TRUE(Utf8ToCodePage("A文①", bytes));
  EXPECT_EQ(bytes, ToCodePage(u"A文①"_s));
  for (const char* refused : {"ñ", "文\U0001F600", "\xE6\x96", "\xED\xA0\x80", "\xC0\x80", "\xFF"})
    EXPECT_FALSE(Utf8ToCodePage(refused, bytes)) << refused;
}

TEST(CodePageReader, ReadsTheCodePagesOfOtherCountries) {
  const auto read = [](int number, QByteArrayView bytes) {
    QByteArray buffer;
    return QString::fromUtf8(CodePageReader(number).Read(bytes, buffer));
  };
  EXPECT_EQ(read(1252, "\xE4\x80\x81"), u"ä€\u0081"_s);
  EXPECT_EQ(read(949, "\xC7\xD1\x31"), u"한1"_s);
  EXPECT_EQ(read(932, "\x82\xA0\xB1"), u"あｱ"_s);
  EXPECT_EQ(read(950, "\xA4\xA4\xFF"), u"中\uFFFD"_s);
  EXPECT_EQ(read(1258, "e\xEC"), u"é"_s);
  EXPECT_EQ(read(65001, "\xE6\x96\x87\xE6"), u"文\uFFFD"_s);
  EXPECT_EQ(read(936, "plain"), u"plain"_s);
  EXPECT_THROW(CodePageReader(12345), DataError);
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
