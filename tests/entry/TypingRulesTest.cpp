#include "EntryFixture.h"
#include "base/CodePage.h"
#include "base/HalfWidth.h"
#include "entry/TypingRules.h"

namespace folvane::test {
namespace {

const QStringList kNoWideFields{u"0"_s};

class WideFieldsTest : public testing::Test {
 protected:
  TempProgramDirectory program_;
};

TEST_F(WideFieldsTest, AreWrittenByteForByteWhenTheFileIsMissing) {
  EXPECT_EQ(RegCbcIni(u"FWDJ"_s), kNoWideFields);
  EXPECT_EQ(program_.Read(u"SBC.Ini"_s),
            ToCodePage(u"#-------------------------------------\r\n"
                       "# 半角改全角设置文件------------------\r\n"
                       "# 表名后加字段名，用逗号隔开,注意中间不要有空格！格式如：FWDJ=Amaintitle,Responsebyble等！\r\n"
                       "# 如果不需要转换的表，在表名后加0，如：FWDJ=0\r\n"
                       "#-------------------------------------\r\n"
                       "[CBCTOSBC]\r\n"
                       "FWDJ=0\r\n"_s));
}

TEST_F(WideFieldsTest, AreTakenApartAtTheCommas) {
  program_.Write(u"SBC.INI"_s, "[CBCTOSBC]\r\nFWDJ=Amaintitle,Responsebyble\r\n");
  EXPECT_EQ(RegCbcIni(u"FWDJ"_s), (QStringList{u"Amaintitle"_s, u"Responsebyble"_s}));
}

TEST_F(WideFieldsTest, GetAMissingTable) {
  program_.Write(u"SBC.Ini"_s, "[CBCTOSBC]\r\nFWDJ=Amaintitle\r\n");
  EXPECT_EQ(RegCbcIni(u"Lwdj"_s), kNoWideFields);
  EXPECT_EQ(program_.Read(u"SBC.Ini"_s), "[CBCTOSBC]\r\nFWDJ=Amaintitle\r\nLwdj=0\r\n");
}

TEST_F(WideFieldsTest, FitABufferOf500Characters) {
  program_.Write(u"SBC.Ini"_s, "[CBCTOSBC]\r\nFWDJ=" + QByteArray(600, 'a') + "\r\n");
  EXPECT_EQ(RegCbcIni(u"FWDJ"_s).front().size(), 499);
}

TEST(TypingRules, LetOnlyDigitsAndPointsIntoANumericField) {
  int beeps = 0;
  Services().beep = [&] { ++beeps; };
  const TypingRules rules = TypingRules::Of(ControlKind::Txt, u"Pages"_s, true, {u"Pages"_s});
  EXPECT_EQ(rules.Admit(u"1"_s), u"1"_s);
  EXPECT_EQ(rules.Admit(u"1.2.3"_s), u"1.2.3"_s);
  EXPECT_EQ(beeps, 0);
  EXPECT_EQ(rules.Admit(u"a"_s), QString());
  EXPECT_EQ(beeps, 1);
}

TEST(TypingRules, DropABlankSilentlyInTheColumnsThatNeverHaveAny) {
  int beeps = 0;
  Services().beep = [&] { ++beeps; };
  const auto admits = [](int controlType, const QString& field) {
    return !TypingRules::Of(controlType, field, false, kNoWideFields).Admit(u" "_s).isEmpty();
  };
  EXPECT_FALSE(admits(ControlKind::Txt, u"ResponsibleBy"_s));
  EXPECT_FALSE(admits(ControlKind::Txt, u"SBTWORD"_s));
  EXPECT_FALSE(admits(ControlKind::Txt_MLine, u"amaintitle"_s));
  EXPECT_TRUE(admits(ControlKind::Txt, u"Amaintitle"_s));
  EXPECT_TRUE(admits(ControlKind::Txt_MLine, u"ResponsibleBy"_s));
  EXPECT_TRUE(admits(ControlKind::Cmb, u"ResponsibleBy"_s));
  EXPECT_EQ(beeps, 0);
}

TEST(TypingRules, WidenWhatIsTypedIntoTheFieldsOfTheFile) {
  const QStringList fields{u"Amaintitle"_s, u"Responsebyble"_s};
  const auto admitted = [&](int controlType, const QString& field, bool isNumeric = false) {
    return TypingRules::Of(controlType, field, isNumeric, fields).Admit(u"1"_s);
  };
  EXPECT_EQ(admitted(ControlKind::Txt_MLine, u"AMAINTITLE"_s), u"１"_s);
  EXPECT_EQ(admitted(ControlKind::Txt, u"AMAINTITLE"_s), u"１"_s);
  EXPECT_EQ(admitted(ControlKind::Txt, u"ResponsibleBy"_s), u"1"_s);
  EXPECT_EQ(admitted(ControlKind::Cmb, u"AMAINTITLE"_s), u"1"_s);
  EXPECT_EQ(admitted(ControlKind::Txt, u"AMAINTITLE"_s, true), u"1"_s);
}

TEST(TypingRules, WidenNothingWhereTheFileSaysNo) {
  const TypingRules rules = TypingRules::Of(ControlKind::Txt, u"Amaintitle"_s, false, {u"0"_s, u"Amaintitle"_s});
  EXPECT_EQ(rules.Admit(u"A"_s), u"A"_s);
}

TEST(TypingRules, AreNoneForPickers) {
  EXPECT_EQ(TypingRules::Of(ControlKind::F_Organ, u"SBTWORD"_s, true, {u"SBTWORD"_s}).Admit(u"a b"_s), u"a b"_s);
}

TEST(FullWidth, IsTheWayBackOfHalfWidth) {
  EXPECT_EQ(ToFullWidth(u"A 1~文"_s), u"Ａ　１～文"_s);
  EXPECT_EQ(ToHalfWidth(ToFullWidth(u"A 1~文"_s)), u"A 1~文"_s);
}

TEST(YearSigns, StandOnTwoFunctionKeys) {
  EXPECT_EQ(YearSignOf(Qt::Key_F11, true, false), u"〔"_s);
  EXPECT_EQ(YearSignOf(Qt::Key_F12, true, false), u"〕"_s);
  EXPECT_EQ(YearSignOf(Qt::Key_F10, true, false), QString());
  EXPECT_EQ(YearSignOf(Qt::Key_F11, false, false), QString());
}

TEST(YearSigns, DoNotGoIntoANumericField) { EXPECT_EQ(YearSignOf(Qt::Key_F11, true, true), QString()); }

class NumericFieldTest : public EntryTest {};

TEST_P(NumericFieldTest, IsToldByTheTypeOfTheColumn) {
  Recordset& records = OpenRecords();
  EXPECT_TRUE(IsNumericField(records, u"regid"_s));
  EXPECT_FALSE(IsNumericField(records, u"DocNo"_s));
  EXPECT_FALSE(IsNumericField(records, u"FileDate"_s));
}

FOLVANE_ON_EACH_DATABASE(NumericFieldTest);

}  // namespace
}  // namespace folvane::test
