#include <QComboBox>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "SharedDatabase.h"
#include "shell/Lookups.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class Lookups : public test::SharedDatabase {};
FOLVANE_ON_EACH_DATABASE(Lookups);

TEST_P(Lookups, GetReportIdFindsAReportOfTheGroup) {
  Run({u"Insert Into Report_Index Values ('7', 'Fwdj', '发文目录')"_s});
  EXPECT_EQ(GetReportId(u"Fwdj"_s, u"发文目录"_s), u"7"_s);
  EXPECT_EQ(GetReportId(u"Swdj"_s, u"发文目录"_s), QString());
  EXPECT_EQ(Statements().first(),
            u"select report_id from report_index where report_group_id ='Fwdj'and report_name ='发文目录'"_s);
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
  EXPECT_EQ(test::Entries(list), (QStringList{u"<无>"_s, u"秘密"_s, u"机密"_s}));
  EXPECT_EQ(Statements(),
            QStringList{u"Select Name From AssistantDicKey Where DicID in (Select DicId from AssistantDictionary "
                        "where Name='密级') Order By Note"_s});
}

TEST_P(FillDictionaryTest, TakesABracketedSelectForTheName) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'Secret', '密级', '文本型', 10)"_s});
  QComboBox list;
  FillDictionary(list, u"(Select ChnFieldName From DynamicWindows Where FieldName='Secret')"_s);
  EXPECT_EQ(test::Entries(list), (QStringList{u"秘密"_s, u"机密"_s}));
}

TEST_P(Lookups, GetReportIdTakesANameAsItIs) {
  Run({u"Insert Into Report_Index Values ('7', 'Fwdj', '发文目录')"_s,
       u"Insert Into Report_Index Values ('8', 'Fwdj', '''02 年目录')"_s});
  EXPECT_EQ(GetReportId(u"Fwdj"_s, u"'02 年目录"_s), u"8"_s);
  EXPECT_EQ(GetReportId(u"Fwdj"_s, u"' or '1'='1"_s), QString());
}

TEST_P(Lookups, GetMaxValueIsZeroOnAnEmptyTable) {
  EXPECT_EQ(GetMaxValue(u"OrderNo"_s, u"SimSearch"_s).toLongLong(), 0);
  EXPECT_EQ(Statements(), QStringList{u"Select Max(OrderNo) From SimSearch"_s});
}

TEST_P(Lookups, GetMaxValueTakesTheRestOfTheStatement) {
  Run({u"Insert Into SimSearch Values ('Fwdj', 'a', '', 3)"_s, u"Insert Into SimSearch Values ('Fwdj', 'b', '', 12)"_s,
       u"Insert Into SimSearch Values ('Swdj', 'a', '', 20)"_s});
  EXPECT_EQ(GetMaxValue(u"OrderNo"_s, u"SimSearch Where TableName='Fwdj'"_s).toLongLong(), 12);
}

TEST_P(Lookups, AnErrorOfTheDatabaseRises) {
  EXPECT_THROW(GetMaxValue(u"OrderNo"_s, u"NoSuchTable"_s), DataError);
  Shared().Connection = nullptr;
  EXPECT_THROW(GetReportId(u"Fwdj"_s, u"x"_s), DataError);
}

}  // namespace
}  // namespace folvane
