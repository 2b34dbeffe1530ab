#include "EntryFixture.h"
#include "base/TypedValues.h"
#include "entry/FieldChecks.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

const ControlId kTitle{ControlKind::Txt, 1};
const ControlId kDate{ControlKind::DTP, 1};
const ControlId kArchiveDate{ControlKind::DTP_Arch, 2};

ShownField Shown(const ControlId& control, const QString& text, const QString& limitText = u"限长4个字符"_s) {
  return {control, u"F"_s, u"题名"_s, limitText, text};
}

EntryLayout Required(const ControlId& control) {
  EntryLayout layout;
  layout.RequiredList = {{}, control};
  return layout;
}

EntryLayout FixedLength(const ControlId& control) {
  EntryLayout layout;
  layout.FixedLengthList = {{}, control};
  return layout;
}

bool PassesAsDate(const QString& text) { return !CheckArchiveDates({Shown(kArchiveDate, text)}); }

TEST(FieldChecks, StopAnEmptyRequiredField) {
  const auto failure = CheckData({Shown(kTitle, QString())}, Required(kTitle));
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, u"当前数据保存失败，原因在于：“题名”字段值不能为空！请输入数据！"_s);
  EXPECT_EQ(failure->flags, MessageFlag::Information);
  EXPECT_EQ(failure->control, kTitle);
  EXPECT_FALSE(CheckData({Shown(kTitle, u"x"_s)}, Required(kTitle)));
}

TEST(FieldChecks, StopARequiredDatePickerWithoutADate) {
  const auto failure = CheckData({Shown(kDate, QString(), QString())}, Required(kDate));
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->control, kDate);
}

TEST(FieldChecks, PassOverAFieldThatWasNotBuilt) { EXPECT_FALSE(CheckData({}, Required({11, 1}))); }

TEST(FieldChecks, WantAFixedLengthFilledOrEmpty) {
  EXPECT_FALSE(CheckData({Shown(kTitle, u"文件"_s)}, FixedLength(kTitle)));
  EXPECT_FALSE(CheckData({Shown(kTitle, QString())}, FixedLength(kTitle)));
  const auto failure = CheckData({Shown(kTitle, u"文"_s)}, FixedLength(kTitle));
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, u"当前数据保存失败，原因在于：“题名”字段值必须为4个字符，请重新输入!"_s);
  EXPECT_EQ(failure->flags, MessageFlag::Information);
  EXPECT_EQ(failure->control, kTitle);
}

TEST(FieldChecks, WantEightCharactersOfAnArchiveDate) {
  const auto failure = CheckData({Shown(kArchiveDate, u"2002"_s)}, FixedLength(kArchiveDate));
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, u"当前数据保存失败，原因在于：“题名”字段值必须为8个字符，请重新输入!"_s);
  EXPECT_FALSE(CheckData({Shown(kArchiveDate, u"20020304"_s)}, FixedLength(kArchiveDate)));
  EXPECT_FALSE(CheckData({Shown(kArchiveDate, QString())}, FixedLength(kArchiveDate)));
}

TEST(FieldChecks, KnowNoFixedLengthOfADatePicker) {
  EXPECT_FALSE(CheckData({Shown(kDate, u"2002-03-04"_s, QString())}, FixedLength(kDate)));
}

TEST(FieldChecks, TellOfARequiredFieldAheadOfALengthInAnEarlierField) {
  EntryLayout layout = Required(kArchiveDate);
  layout.FixedLengthList = {{}, kTitle};
  const auto failure = CheckData({Shown(kTitle, u"文"_s), Shown(kArchiveDate, QString())}, layout);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->control, kArchiveDate);
}

TEST(FieldChecks, CannotReadALengthFromAHintWithoutANumber) {
  EXPECT_THROW(CheckData({Shown(kTitle, u"x"_s, u"提示"_s)}, FixedLength(kTitle)), NumberError);
}

TEST(FieldChecks, RefuseADateThatIsNone) {
  const auto failure = CheckArchiveDates({Shown(kArchiveDate, u"20021301"_s)});
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, u"当前数据保存失败，原因在于：您输入的日期不合法！请重新输入！"_s);
  EXPECT_EQ(failure->flags, MessageFlag::Information);
  EXPECT_EQ(failure->control, kArchiveDate);
  EXPECT_FALSE(PassesAsDate(u"20020230"_s));
  EXPECT_FALSE(PassesAsDate(u"abcdefgh"_s));
}

TEST(FieldChecks, AcceptDatesWithAnUnknownMonthOrDay) {
  for (const QString& text : {u"20020304"_s, u"20020000"_s, u"20021200"_s, u"20020015"_s, u"2002"_s, QString()})
    EXPECT_TRUE(PassesAsDate(text)) << text.toStdString();
}

TEST(FieldChecks, TellOfTheBadDateOfTheLowestNumber) {
  const auto failure =
      CheckArchiveDates({Shown({ControlKind::DTP_Arch, 3}, u"20021301"_s), Shown(kArchiveDate, u"20021302"_s)});
  EXPECT_EQ(failure->control, kArchiveDate);
}

TEST(FieldChecks, PutAMultiLineTextOnOneLine) { EXPECT_EQ(OneLine(u" 第一行\r\n第二行 \r\n"_s), u"第一行第二行"_s); }

TEST(FieldChecks, TakeNothingButBreaksAndBlanksOutOfAMultiLineText) {
  EXPECT_EQ(OneLine(u" \u3000甲\u00a0乙\u2028丙\t "_s), u"\u3000甲\u00a0乙\u2028丙\t"_s);
}

TEST(FieldChecks, KnowTheFondsNumberByItsPicker) {
  const auto of = [](int type, const QString& column) {
    return FondsNoIn({{{type, 1}, column, u"全宗"_s, {}, u"F1"_s}});
  };
  EXPECT_EQ(of(ControlKind::F_FondsNo, u"FONDSNO"_s), u"F1"_s);
  EXPECT_EQ(of(ControlKind::Txt, u"FondsNo"_s), QString());
  EXPECT_EQ(of(ControlKind::F_FondsNo, u"Other"_s), QString());
}

class RightsCheckTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into DynamicWindows (TableName,FieldName) values ('Lwdj','FondsNo')"_s);
  }
  void Limit(const QString& field) {
    Run(u"insert into UserPopedomScopeDetails (PopTableName,UserID,FieldName) values ('Lwdj','7','%1')"_s.arg(field));
  }
  static std::optional<CheckFailure> Check(const QString& value) {
    return CheckPopedom({u"Lwdj"_s, u"(Lwdj.FondsNo='F1' Or Lwdj.FondsNo='F2')"_s, u"全宗一和二"_s},
                        {{{ControlKind::F_FondsNo, 1}, u"FondsNo"_s, u"全宗"_s, {}, value}});
  }
};

TEST_P(RightsCheckTest, PassesATableWithoutLimitsWithoutAStatement) {
  EXPECT_FALSE(Check(u"F3"_s));
  EXPECT_EQ(TakeStatements(),
            QStringList{u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='Lwdj' And "
                        "UserId = '7'"_s});
}

TEST_P(RightsCheckTest, HasTheDatabaseJudgeTheValues) {
  Limit(u"FondsNo"_s);
  EXPECT_FALSE(Check(u"F2"_s));
  EXPECT_EQ(TakeStatements().last(),
            u"If Not (('F2'='F1' Or 'F2'='F2')) Select 'False' As Result,Count(1)as T from DynamicWindows "
            "Else Select 'True' As Result,Count(1)as T From DynamicWindows"_s);
}

TEST_P(RightsCheckTest, RefusesValuesOutsideTheRights) {
  Limit(u"FondsNo"_s);
  const auto failure = Check(u"F3"_s);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->text, u"当前数据保存失败，原因在于：您输入的数据与您的权限不符！\r\n全宗一和二"_s);
  EXPECT_EQ(failure->flags, 0);
  EXPECT_FALSE(failure->control);
}

TEST_P(RightsCheckTest, JudgesAColumnThatIsShownTwiceByItsTextBox) {
  Limit(u"FondsNo"_s);
  const auto shown = [](int kind, const QString& column, const QString& value) {
    return ShownField{{kind, 1}, column, u"全宗"_s, {}, value};
  };
  const EntryRights rights{u"Lwdj"_s, u"(Lwdj.FondsNo='F1')"_s, u"全宗一"_s};
  const ShownField inLines = shown(ControlKind::Txt_MLine, u"FondsNo"_s, u"F2"_s);
  EXPECT_FALSE(CheckPopedom(rights, {inLines, shown(ControlKind::Txt, u"FondsNo"_s, u"F1"_s)}));
  EXPECT_TRUE(CheckPopedom(rights, {inLines, shown(ControlKind::Txt, u"FONDSNO"_s, u"F1"_s)}));
}

TEST_P(RightsCheckTest, ReplacesTheColumnInItsOwnSpellingOnly) {
  Limit(u"FONDSNO"_s);
  EXPECT_ANY_THROW(Check(u"F2"_s));
}

TEST_P(RightsCheckTest, EndsOverAValueThatBreaksTheStatement) {
  Limit(u"FondsNo"_s);
  EXPECT_ANY_THROW(Check(u"F'2"_s));
}

FOLVANE_ON_EACH_DATABASE(RightsCheckTest);

}  // namespace
}  // namespace folvane::test
