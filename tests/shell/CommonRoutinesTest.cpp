#include <QComboBox>
#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "SharedDatabase.h"
#include "shell/CommonRoutines.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

// Counts the beeps for as long as it lives.
struct Beeps {
  Beeps() {
    Services().beep = [this] { ++count; };
  }
  int count = 0;
};

QStringList Parts(const QString& text, const QString& delimiter) {
  QStringList parts{u"left from before"_s};
  SplitText(parts, text, delimiter);
  return parts;
}

TEST(FilterKey, DigitsAndBackspacePassWithoutABeep) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('0', u"0123456789"_s, true), '0');
  EXPECT_EQ(FilterKey(8, u"0123456789"_s, true), 8);
  EXPECT_EQ(beeps.count, 0);
}

TEST(FilterKey, ALetterBecomesZeroWithABeep) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('a', u"0123456789"_s, true), 0);
  EXPECT_EQ(beeps.count, 1);
}

TEST(FilterKey, BackspaceHasToBeAllowed) {
  Beeps beeps;
  EXPECT_EQ(FilterKey(8, u"0123456789"_s, false), 0);
  EXPECT_EQ(beeps.count, 1);
}

TEST(FilterKey, CaseDoesNotMatterAndTheKeyComesBackAsTyped) {
  Beeps beeps;
  EXPECT_EQ(FilterKey('x', u"XY"_s, false), 'x');
  EXPECT_EQ(FilterKey('X', u"xy"_s, false), 'X');
  EXPECT_EQ(FilterKey(u'文', u"件文"_s, false), u'文');
  EXPECT_EQ(beeps.count, 0);
}

TEST(FilterKey, AFailingBeepIsPassedOver) {
  Services().beep = [] { throw std::runtime_error("no sound"); };
  EXPECT_EQ(FilterKey('a', u"0"_s, false), 0);
}

TEST(SplitText, ATrailingCommaGivesAnEmptyLastElement) {
  EXPECT_EQ(Parts(u"a,b,"_s, u","_s), (QStringList{u"a"_s, u"b"_s, QString()}));
}

TEST(SplitText, AnEmptyTextGivesOneEmptyElement) { EXPECT_EQ(Parts({}, u","_s), QStringList{QString()}); }

TEST(SplitText, WithoutADelimiterItIsTheComma) { EXPECT_EQ(Parts(u"文,件"_s, {}), (QStringList{u"文"_s, u"件"_s})); }

TEST(SplitText, ATextWithoutTheDelimiterIsOneElement) { EXPECT_EQ(Parts(u"a,b"_s, u"@"_s), QStringList{u"a,b"_s}); }

TEST(EscapeSql, DoublesQuotesAndKeepsBracketsOutsideOfLike) { EXPECT_EQ(EscapeSql(u"O'N[e]il"_s), u"O''N[e]il"_s); }

TEST(EscapeSql, OpensBracketsInLike) { EXPECT_EQ(EscapeSql(u"O'N[e]il"_s, true), u"O''N[[]e]il"_s); }

TEST(RegistryValues, AMissingKeyOrValueIsEmpty) {
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s), QString());
}

TEST(RegistryValues, LieUnderRootAndPath) {
  SaveValue(kLocalMachine, kMainFlags, u"UseSpecialSign"_s, u"True"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"usespecialsign"_s), u"True"_s);
  EXPECT_EQ(Services().registry->Read(u"HKEY_LOCAL_MACHINE\\Software\\Norvex\\MainFlags"_s, u"UseSpecialSign"_s),
            u"True"_s);
}

TEST(RegistryValues, AreKeptInTheNationalCodePage) {
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"全宗ñ1"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s), u"全宗?1"_s);
}

TEST(RegistryValues, AreCutAtTheFirstNul) {
  Services().registry->Write(u"HKEY_LOCAL_MACHINE\\Software\\Norvex\\FondsSet"_s, u"CurrFondsNo"_s, u"12\0003"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s), u"12"_s);
}

class CommonRoutines : public test::SharedDatabase {};
FOLVANE_ON_EACH_DATABASE(CommonRoutines);

TEST_P(CommonRoutines, GetReportIdFindsAReportOfTheGroup) {
  Run({u"Insert Into Report_Index Values ('7', 'Fwdj', '发文目录')"_s});
  EXPECT_EQ(GetReportId(u"Fwdj"_s, u"发文目录"_s), u"7"_s);
  EXPECT_EQ(GetReportId(u"Swdj"_s, u"发文目录"_s), QString());
  EXPECT_EQ(Statements().first(),
            u"select report_id from report_index where report_group_id ='Fwdj'and report_name ='发文目录'"_s);
}

TEST_P(CommonRoutines, TableHasFieldAsksOnlyWhetherTheStatementIsAccepted) {
  EXPECT_TRUE(TableHasField(u"Fwdj"_s, u"NoSuchField"_s));
  EXPECT_EQ(Statements(), QStringList{u"select fieldname='NoSuchField' from DynamicWindows where tablename='Fwdj'"_s});
  EXPECT_FALSE(TableHasField(u"Fw'dj"_s, u"Field"_s));
}

TEST_P(CommonRoutines, TableHasFieldIsFalseWithoutAConnection) {
  Shared().Connection = nullptr;
  EXPECT_FALSE(TableHasField(u"Fwdj"_s, u"DocNo"_s));
}

TEST_P(CommonRoutines, FieldExistsKnowsTheFieldsOfAnOpenRecordSet) {
  Recordset records;
  EXPECT_FALSE(FieldExists(records, u"UserName"_s));
  records.Open(u"Select UserName From UserPopedom"_s, Connected());
  EXPECT_TRUE(FieldExists(records, u"USERNAME"_s));
  EXPECT_FALSE(FieldExists(records, u"UserID"_s));
}

TEST_P(CommonRoutines, GetChnFieldNameIsEmptyForAnUnknownField) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s});
  EXPECT_EQ(GetChnFieldName(u"Fwdj"_s, u"DocNo"_s), u"文件编号"_s);
  EXPECT_EQ(GetChnFieldName(u"Fwdj"_s, u"CREATEDDATE"_s), QString());
  EXPECT_EQ(Statements().first(),
            u"Select ChnFieldName from DynamicWindows Where TableName='Fwdj' and FieldName='DocNo'"_s);
}

class ErrorTexts : public test::SharedDatabase {
 protected:
  void SetUp() override {
    SharedDatabase::SetUp();
    Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s});
  }
  /// A refusal over the column of that name.
  static DataError Refusal(const QString& column, DataErrorKind kind = DataErrorKind::TooLong) {
    return DataError(kind, u"字段“%1”的值“%1”太长。"_s.arg(column)).About(column);
  }
};
FOLVANE_ON_EACH_DATABASE(ErrorTexts);

TEST_P(ErrorTexts, ARefusedValueIsToldWithTheCaptionOfItsColumn) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"docno"_s)), u"字段“文件编号”的值“docno”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s, DataErrorKind::Constraint)),
            u"字段“文件编号”的值“DocNo”太长。"_s);
}

TEST_P(ErrorTexts, AColumnWithoutACaptionKeepsItsName) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"RegID"_s)), u"字段“RegID”的值“RegID”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Swdj"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
}

TEST_P(ErrorTexts, AnErrorOfAnotherKindIsToldAsItIsWithoutALookUp) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s, DataErrorKind::Conversion)), u"字段“DocNo”的值“DocNo”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, std::runtime_error("broken")), u"broken"_s);
  EXPECT_EQ(Statements(), QStringList());
}

TEST_P(ErrorTexts, NoErrorEscapesFromTheLookUp) {
  EXPECT_EQ(ErrorTextFor(u"no ' table"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
  Shared().Connection = nullptr;
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
}

QStringList Entries(const QComboBox& list) {
  QStringList entries;
  for (int index = 0; index < list.count(); ++index) entries << list.itemText(index);
  return entries;
}

TEST_P(CommonRoutines, FillSearchFieldsAddsToFourParallelListsInTheirOrder) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s,
       u"Insert Into DynamicWindows Values ('Fwdj', 'MainTitle', '文件题名', '文本型', 80)"_s,
       u"Insert Into DynamicWindows Values ('Swdj', 'DocNo', '来文编号', '文本型', 40)"_s,
       u"Insert Into SimSearch Values ('Fwdj', 'DocNo', Null, 2)"_s,
       u"Insert Into SimSearch Values ('Fwdj', 'MainTitle', '@a@', 1)"_s});
  QComboBox fields, captions, types, values;
  FillSearchFields(u"Fwdj"_s, fields, captions, types, values);
  EXPECT_EQ(Entries(fields), (QStringList{u"MainTitle"_s, u"DocNo"_s}));
  EXPECT_EQ(Entries(captions), (QStringList{u"文件题名"_s, u"文件编号"_s}));
  EXPECT_EQ(Entries(types), (QStringList{u"文本型"_s, u"文件编号型"_s}));
  EXPECT_EQ(Entries(values), (QStringList{u"@a@"_s, QString()}));
  EXPECT_EQ(
      Statements(),
      QStringList{
          u"Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,SimSearch.FieldValue "
          "From DynamicWindows,SimSearch Where DynamicWindows.TableName=SimSearch.TableName And "
          "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = 'Fwdj' Order By "
          "SimSearch.OrderNo"_s});
}

class FillDictionaryTest : public test::SharedDatabase {
 protected:
  void SetUp() override {
    SharedDatabase::SetUp();
    Run({u"Insert Into AssistantDictionary Values (3, '密级')"_s,
         u"Insert Into AssistantDicKey Values (3, '机密', '2')"_s,
         u"Insert Into AssistantDicKey Values (3, '秘密', '1')"_s,
         u"Insert Into AssistantDicKey Values (4, '长期', '0')"_s});
  }
};
FOLVANE_ON_EACH_DATABASE(FillDictionaryTest);

TEST_P(FillDictionaryTest, AddsTheNamesOfAQuotedDictionaryBehindWhatIsThere) {
  QComboBox list;
  list.addItem(u"<无>"_s);
  FillDictionary(list, u"'密级'"_s);
  EXPECT_EQ(Entries(list), (QStringList{u"<无>"_s, u"秘密"_s, u"机密"_s}));
  EXPECT_EQ(Statements(),
            QStringList{u"Select Name From AssistantDicKey Where DicID in (Select DicId from AssistantDictionary "
                        "where Name='密级') Order By Note"_s});
}

TEST_P(FillDictionaryTest, TakesABracketedSelectForTheName) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'Secret', '密级', '文本型', 10)"_s});
  QComboBox list;
  FillDictionary(list, u"(Select ChnFieldName From DynamicWindows Where FieldName='Secret')"_s);
  EXPECT_EQ(Entries(list), (QStringList{u"秘密"_s, u"机密"_s}));
}

TEST_P(CommonRoutines, GetMaxValueIsZeroOnAnEmptyTable) {
  EXPECT_EQ(GetMaxValue(u"OrderNo"_s, u"SimSearch"_s).toLongLong(), 0);
  EXPECT_EQ(Statements(), QStringList{u"Select Max(OrderNo) From SimSearch"_s});
}

TEST_P(CommonRoutines, GetMaxValueTakesTheRestOfTheStatement) {
  Run({u"Insert Into SimSearch Values ('Fwdj', 'a', '', 3)"_s, u"Insert Into SimSearch Values ('Fwdj', 'b', '', 12)"_s,
       u"Insert Into SimSearch Values ('Swdj', 'a', '', 20)"_s});
  EXPECT_EQ(GetMaxValue(u"OrderNo"_s, u"SimSearch Where TableName='Fwdj'"_s).toLongLong(), 12);
}

TEST_P(CommonRoutines, AnErrorOfTheDatabaseRises) {
  EXPECT_THROW(GetMaxValue(u"OrderNo"_s, u"NoSuchTable"_s), DataError);
  Shared().Connection = nullptr;
  EXPECT_THROW(GetReportId(u"Fwdj"_s, u"x"_s), DataError);
}

}  // namespace
}  // namespace folvane
