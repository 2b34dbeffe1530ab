#include <gmock/gmock.h>

#include "archiving/ArchiveFormat.h"
#include "archiving/DoArchiveLog.h"
#include "archiving/ParameterFixture.h"
#include "base/CodePage.h"
#include "base/TypedValues.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

QStringList AskedFields(const ArchiveFormat& format) {
  QStringList asked;
  for (const LayoutRow& row : format.fields)
    asked << u"%1 %2(%3)"_s.arg(row.dataField).arg(row.control.type).arg(row.control.index);
  return asked;
}

class ArchiveFormatTest : public ParameterTest {
 protected:
  static ShownField Entered(int type, int index, const QString& field, const QString& text) {
    return {{type, index}, field, field + u"标题"_s, {}, text};
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(ArchiveFormatTest);

TEST_P(ArchiveFormatTest, ReadsTheFormatByTheseTwoStatements) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  Part(u"ItemNo"_s);
  log_->Take();
  LoadArchiveFormat(u"Wsda"_s);
  EXPECT_THAT(
      log_->Take(),
      ElementsAre(
          u"Select SaveControls.DataField,SaveControls.ControlType,DynamicWindows.ChnFieldName,DynamicWindows."
          "AuxiDictDetails,DynamicWindows.FieldLong,DynamicWindows.FieldType From SaveControls,DynamicWindows Where "
          "DataSource='Wsda' And SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 And "
          "Savecontrols.DataSource = DynamicWindows.TableName And SaveControls.DataField = DynamicWindows.FieldName "_s,
          u"Select * from ArchiveNo_Format Where TableName='Wsda'"_s));
}

TEST_P(ArchiveFormatTest, FillsTheSharedNumberFromIndexOneOn) {
  Part(u"FondsNo"_s, u"/"_s, 4);
  Part(u"FileYear"_s, u"-"_s, 6, u"显示名称"_s);
  Part(u"ItemNo"_s, u""_s, 3, u"<null>"_s);
  Part(u"Other"_s, u"!"_s, 1, u"显示代号"_s, u"Kjda"_s);
  EXPECT_EQ(LoadArchiveFormat(u"Wsda"_s).parts, 3);
  const SharedState& shared = Shared();
  EXPECT_THAT(shared.ArchNoFieldName, ElementsAre(u""_s, u"FondsNo"_s, u"FileYear"_s, u"ItemNo"_s));
  EXPECT_THAT(shared.ArchNoSeparator, ElementsAre(u""_s, u"/"_s, u"-"_s, u""_s));
  EXPECT_THAT(shared.ArchNoShowCode, ElementsAre(false, true, false, false));
  EXPECT_THAT(shared.ArchNoLength, ElementsAre(0, 4, 6, 3));
  EXPECT_THAT(shared.ArchNoFieldValue, ElementsAre(u""_s, u""_s, u""_s, u""_s));
  EXPECT_EQ(shared.ArchNoStoreField, u"ArchiveNo"_s);
  EXPECT_EQ(shared.ArchNoFolderField, u"FolderNo"_s);
}

TEST_P(ArchiveFormatTest, ATableWithoutAFormatLeavesNothingOfTheOneBefore) {
  Part(u"FondsNo"_s);
  Part(u"ItemNo"_s);
  LoadArchiveFormat(u"Wsda"_s);
  EXPECT_EQ(LoadArchiveFormat(u"Kjda"_s).parts, 0);
  EXPECT_THAT(Shared().ArchNoFieldName, ElementsAre(u""_s));
  EXPECT_THAT(Shared().ArchNoFieldValue, ElementsAre(u""_s));
  EXPECT_THAT(Shared().ArchNoLength, ElementsAre(0));
  EXPECT_EQ(Shared().ArchNoStoreField, QString());
  EXPECT_EQ(Shared().ArchNoFolderField, QString());
}

TEST_P(ArchiveFormatTest, AFormatOfOnePartHasNoFixedField) {
  AskFor(u"ItemNo"_s, u"件号"_s);
  const ArchiveFormat format = LoadArchiveFormat(u"Wsda"_s);
  EXPECT_EQ(format.parts, 1);
  EXPECT_TRUE(format.fields.empty());
  EXPECT_EQ(Shared().ArchNoStoreField, u"ArchiveNo"_s);
}

TEST_P(ArchiveFormatTest, AFieldThatTheEntryFormDoesNotHaveIsNotAskedFor) {
  Part(u"FondsNo"_s);
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s);
  EXPECT_THAT(AskedFields(LoadArchiveFormat(u"Wsda"_s)), ElementsAre(u"FileYear 1(1)"_s));
  DoArchiveLog log(u"Wsda"_s);
  EXPECT_EQ(TakeArchiveValues({Entered(1, 1, u"FileYear"_s, u"2002"_s)}, log), nullptr);
  EXPECT_THAT(Shared().ArchNoFieldValue, ElementsAre(u""_s, u""_s, u"2002"_s, u""_s));
}

TEST_P(ArchiveFormatTest, KindsOfTheFormAreAskedForByTheirControlsAndAllOthersAsText) {
  for (const auto& [field, kind] : std::vector<std::pair<QString, int>>{{u"A"_s, 8},
                                                                        {u"B"_s, 2},
                                                                        {u"C"_s, 4},
                                                                        {u"D"_s, 6},
                                                                        {u"E"_s, 7},
                                                                        {u"F"_s, 9},
                                                                        {u"G"_s, 10},
                                                                        {u"H"_s, 1},
                                                                        {u"I"_s, 3},
                                                                        {u"J"_s, 5},
                                                                        {u"K"_s, 2}})
    AskFor(field, field, kind);
  Part(u"ItemNo"_s);
  EXPECT_THAT(AskedFields(LoadArchiveFormat(u"Wsda"_s)),
              ElementsAre(u"A 1(1)"_s, u"B 2(1)"_s, u"C 4(1)"_s, u"D 6(1)"_s, u"E 7(1)"_s, u"F 9(1)"_s, u"G 1(2)"_s,
                          u"H 1(3)"_s, u"K 2(2)"_s));
}

TEST_P(ArchiveFormatTest, ALengthBeyondSixteenBitsIsAnError) {
  Part(u"FondsNo"_s, u"-"_s, 32768);
  EXPECT_THROW(LoadArchiveFormat(u"Wsda"_s), NumberError);
}

TEST_P(ArchiveFormatTest, TakesTheValuesKindByKindAndKeepsThem) {
  for (const QString& field : {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s, u"ItemNo"_s}) Part(field);
  LoadArchiveFormat(u"Wsda"_s);
  DoArchiveLog log(u"Wsda"_s);
  const ShownFields entered{Entered(9, 1, u"A"_s, u"20020304"_s), Entered(7, 1, u"B"_s, u"AB"_s),
                            Entered(6, 1, u"C"_s, u"J01"_s),      Entered(4, 1, u"D"_s, u"2002-03-04"_s),
                            Entered(2, 1, u"E"_s, u"长期"_s),     Entered(1, 1, u"f"_s, u" 7 "_s)};
  EXPECT_EQ(TakeArchiveValues(entered, log), nullptr);
  EXPECT_THAT(Shared().ArchNoFieldValue,
              ElementsAre(u""_s, u"20020304"_s, u"AB"_s, u"J01"_s, u"2002-03-04"_s, u"长期"_s, u" 7 "_s, u""_s));
  EXPECT_EQ(FromCodePage(Kept()), u"[Wsda]\r\nF= 7 \r\nE=长期\r\nD=\r\nC=J01\r\nB=AB\r\nA=20020304\r\n"_s)
      << "of a date nothing is kept";
}

TEST_P(ArchiveFormatTest, EndsAtTheFirstBlankFieldAndKeepsWhatCameBefore) {
  for (const QString& field : {u"A"_s, u"B"_s, u"C"_s, u"ItemNo"_s}) Part(field);
  LoadArchiveFormat(u"Wsda"_s);
  DoArchiveLog log(u"Wsda"_s);
  const ShownFields entered{Entered(2, 1, u"B"_s, u""_s), Entered(6, 1, u"C"_s, u"J01"_s),
                            Entered(1, 1, u"A"_s, u"1"_s)};
  const ShownField* blank = TakeArchiveValues(entered, log);
  ASSERT_NE(blank, nullptr);
  EXPECT_EQ(blank->caption, u"B标题"_s);
  EXPECT_THAT(Shared().ArchNoFieldValue, ElementsAre(u""_s, u"1"_s, u""_s, u""_s, u""_s));
  EXPECT_EQ(FromCodePage(Kept()), u"[Wsda]\r\nA=1\r\nB=\r\n"_s);
}

TEST_P(ArchiveFormatTest, ATextOfBlanksIsBlankButAChoiceOfBlanksAndADateOfNoneAreNot) {
  for (const QString& field : {u"A"_s, u"ItemNo"_s}) Part(field);
  LoadArchiveFormat(u"Wsda"_s);
  DoArchiveLog log(u"Wsda"_s);
  EXPECT_NE(TakeArchiveValues({Entered(1, 1, u"A"_s, u"  "_s)}, log), nullptr);
  for (const int kind : {2, 6, 7, 9}) {
    EXPECT_EQ(TakeArchiveValues({Entered(kind, 1, u"A"_s, u"  "_s)}, log), nullptr) << kind;
    EXPECT_NE(TakeArchiveValues({Entered(kind, 1, u"A"_s, u""_s)}, log), nullptr) << kind;
  }
  EXPECT_EQ(TakeArchiveValues({Entered(4, 1, u"A"_s, u""_s)}, log), nullptr);
}

TEST_P(ArchiveFormatTest, OfTwoPartsOfOneFieldTheFirstTakesTheValue) {
  for (const QString& field : {u"A"_s, u"a"_s, u"ItemNo"_s}) Part(field);
  LoadArchiveFormat(u"Wsda"_s);
  DoArchiveLog log(u"Wsda"_s);
  TakeArchiveValues({Entered(1, 1, u"A"_s, u"1"_s), Entered(1, 2, u"a"_s, u"2"_s)}, log);
  EXPECT_THAT(Shared().ArchNoFieldValue, ElementsAre(u""_s, u"2"_s, u""_s, u""_s));
}

}  // namespace folvane::test
