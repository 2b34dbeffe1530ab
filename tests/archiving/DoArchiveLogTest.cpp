#include <QDir>
#include <gtest/gtest.h>

#include "archiving/DoArchiveLog.h"
#include "base/CodePage.h"
#include "support/HostDoubles.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kLogFile = u"DoArchiveLog.INI"_s;

class DoArchiveLogTest : public testing::Test {
 protected:
  void Write(const QString& lines) const { program_.Write(kLogFile, ToCodePage(lines)); }
  QString Lines() const { return FromCodePage(program_.Read(kLogFile)); }

  TempProgramDirectory program_;
};

TEST_F(DoArchiveLogTest, KeepsTheLastValueOfEachFieldInASectionOfItsTable) {
  DoArchiveLog log(u"Wsda"_s);
  log.Keep(u"FondsNo"_s, u"全宗甲"_s);
  log.Keep(u"FileYear"_s, u"2001"_s);
  log.Keep(u"FileYear"_s, u"2002"_s);
  EXPECT_EQ(Lines(), u"[Wsda]\r\nFONDSNO=全宗甲\r\nFILEYEAR=2002\r\n"_s);
  EXPECT_EQ(DoArchiveLog(u"Wsda"_s).Last(u"FondsNo"_s), u"全宗甲"_s);
  EXPECT_EQ(log.Failure(), QString());
}

TEST_F(DoArchiveLogTest, TwoTablesWithTheSameFieldKeepSeparateValues) {
  DoArchiveLog first(u"Wsda"_s), second(u"Kjda"_s);
  first.Keep(u"FileYear"_s, u"2001"_s);
  second.Keep(u"FileYear"_s, u"2002"_s);
  EXPECT_EQ(first.Last(u"FileYear"_s), u"2001"_s);
  EXPECT_EQ(second.Last(u"FileYear"_s), u"2002"_s);
}

TEST_F(DoArchiveLogTest, SectionAndFieldAreFoundWithoutRegardToCase) {
  Write(u"[wsda]\r\nFondsNo=J01\r\n"_s);
  DoArchiveLog log(u"WsDa"_s);
  EXPECT_EQ(log.Last(u"FONDSno"_s), u"J01"_s);
  log.Keep(u"fondsno"_s, u"J02"_s);
  EXPECT_EQ(Lines(), u"[wsda]\r\nFondsNo=J02\r\n"_s) << "the line stands once";
}

TEST_F(DoArchiveLogTest, AFieldThatWasNeverGivenHasNoLastValueAndMakesNoFile) {
  EXPECT_EQ(DoArchiveLog(u"Wsda"_s).Last(u"FondsNo"_s), QString());
  EXPECT_FALSE(program_.Has(kLogFile));
}

TEST_F(DoArchiveLogTest, AnEmptyFileIsMadeOnlyWhereThereIsNone) {
  DoArchiveLog log(u"Wsda"_s);
  log.MakeFile();
  EXPECT_TRUE(program_.Has(kLogFile));
  EXPECT_EQ(Lines(), QString());
  Write(u"[Wsda]\r\nA=1\r\n"_s);
  log.MakeFile();
  EXPECT_EQ(Lines(), u"[Wsda]\r\nA=1\r\n"_s);
}

TEST_F(DoArchiveLogTest, AValueOfMoreBytesThanTheBufferTakesIsReadAsFarAsItGoes) {
  DoArchiveLog log(u"Wsda"_s);
  log.Keep(u"A"_s, QString(600, u'文'));
  EXPECT_EQ(log.Last(u"A"_s), QString(499, u'文')) << "999 bytes are 499 whole characters";
}

TEST_F(DoArchiveLogTest, WhatTheCodePageLacksIsLostAloneAndNothingElseIs) {
  const QByteArray before = "[Wsda]\r\n; \xFF\xFE own remark\r\nOLD=\xC4\xEA\r\n";
  program_.Write(kLogFile, before);
  DoArchiveLog log(u"Wsda"_s);
  log.Keep(u"A"_s, u"一😀二"_s);
  EXPECT_EQ(program_.Read(kLogFile), before + "A=\xD2\xBB?\xB6\xFE\r\n");
  EXPECT_EQ(log.Last(u"A"_s), u"一?二"_s);
  EXPECT_EQ(log.Failure(), QString());
}

TEST_F(DoArchiveLogTest, ALineBreakInAValueMakesNoLineOfItsOwn) {
  DoArchiveLog log(u"Wsda"_s);
  log.Keep(u"A"_s, u"x\r\nB=y"_s);
  EXPECT_EQ(log.Last(u"A"_s), u"x  B=y"_s);
  EXPECT_EQ(log.Last(u"B"_s), QString());
}

TEST_F(DoArchiveLogTest, TellsWhyNothingCanBeReadOrKeptAndGoesOn) {
  ASSERT_TRUE(QDir().mkpath(program_.Path(kLogFile)));  // a folder of that name can be neither read nor written
  DoArchiveLog log(u"Wsda"_s);
  EXPECT_EQ(log.Last(u"A"_s), QString());
  EXPECT_NE(log.Failure(), QString());
  DoArchiveLog other(u"Wsda"_s);
  other.MakeFile();
  other.Keep(u"A"_s, u"1"_s);
  EXPECT_NE(other.Failure(), QString());
}

}  // namespace
}  // namespace folvane::test
