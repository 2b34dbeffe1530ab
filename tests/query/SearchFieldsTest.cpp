#include <folvane/DataError.h>

#include "query/QueryFixture.h"
#include "query/SearchFields.h"

namespace folvane::test {
namespace {

class SearchFieldsTest : public QueryTest {
 protected:
  void Choose(const QString& field, int order, int kind, int index) {
    Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex,FieldValue) values "
        "('Lwdj','%1','%1字',%2,%3,%4,'@a@')"_s.arg(field)
            .arg(order)
            .arg(kind)
            .arg(index));
  }
  QStringList Saved() {
    return Rows(
        u"select DataField,ChnDataField,OrderNo,CtlType,CtlIndex from SimSearch where TableName = 'Lwdj' "
        "order by OrderNo"_s);
  }
};

FOLVANE_ON_EACH_DATABASE(SearchFieldsTest);

TEST_P(SearchFieldsTest, TheTypeOfAFieldDecidesBeforeItsDictionary) {
  Describe(u"Pages"_s, u"页数"_s, u"数字型"_s, u"密级"_s);
  Describe(u"No"_s, u"序号"_s, u"自动编号"_s);
  Describe(u"Limit"_s, u"时限"_s, u"时间型"_s, u"密级"_s);
  Describe(u"Archived"_s, u"归档日期"_s, u"档案日期型"_s);
  Run(u"insert into DynamicWindows (TableName,FieldName,FieldType,AuxiDictDetails) values ('Lwdj','Bare',null,null)"_s);
  const std::vector<std::pair<QString, int>> kinds{
      {u"RegID"_s, 2},         {u"Pages"_s, 2}, {u"No"_s, 2},       {u"FinishDate"_s, 2},
      {u"FileDate"_s, 3},      {u"Limit"_s, 3}, {u"Archived"_s, 1}, {u"Amaintitle"_s, 1},
      {u"SecurityClass"_s, 4}, {u"Bare"_s, 1},  {u"Gone"_s, 1},
  };
  for (const auto& [field, kind] : kinds) EXPECT_EQ(GetCtlType(u"Lwdj"_s, field), kind) << qPrintable(field);
  TakeStatements();
  GetCtlType(u"Lwdj"_s, u"RegID"_s);
  EXPECT_EQ(TakeStatements().value(0),
            u"Select ChnFieldName,FieldName,AuxiDictDetails,FieldType From DynamicWindows Where FieldName = 'RegID' "
            "And TableName = 'Lwdj'"_s);
}

TEST_P(SearchFieldsTest, SavingCountsTheInputsWithinTheirKind) {
  Choose(u"DocNo"_s, 1, 1, 1);
  Run(u"insert into SimSearch (TableName,DataField,OrderNo) values ('Fwdj','DocNo',1)"_s);
  SaveSimSearch(u"Lwdj"_s, {{u"题名"_s, u"Amaintitle"_s},
                            {u"登记号"_s, u"RegID"_s},
                            {u"文号"_s, u"DocNo"_s},
                            {u"成文日期"_s, u"FileDate"_s},
                            {u"密级"_s, u"SecurityClass"_s},
                            {u"办结日期"_s, u"FinishDate"_s}});
  EXPECT_EQ(Saved(),
            (QStringList{u"Amaintitle|题名|1|1|1"_s, u"RegID|登记号|2|2|1"_s, u"DocNo|文号|3|1|2"_s,
                         u"FileDate|成文日期|4|3|1"_s, u"SecurityClass|密级|5|4|1"_s, u"FinishDate|办结日期|6|2|2"_s}));
  EXPECT_EQ(Value(u"select count(*) from SimSearch where TableName = 'Fwdj'"_s), u"1"_s);
}

TEST_P(SearchFieldsTest, SavingKeepsWhatWasSearchedForInTheFieldsThatStay) {
  Choose(u"DocNo"_s, 1, 1, 1);
  Choose(u"RegID"_s, 2, 2, 1);
  SaveSimSearch(u"Lwdj"_s, {{u"题名"_s, u"Amaintitle"_s}, {u"文号"_s, u"DocNo"_s}});
  EXPECT_EQ(Rows(u"select DataField,FieldValue from SimSearch order by OrderNo"_s),
            (QStringList{u"Amaintitle|"_s, u"DocNo|@a@"_s}));
}

TEST_P(SearchFieldsTest, SavingNothingLeavesNoFields) {
  Choose(u"DocNo"_s, 1, 1, 1);
  SaveSimSearch(u"Lwdj"_s, {});
  EXPECT_EQ(Saved(), QStringList());
}

TEST_P(SearchFieldsTest, AFailedSaveLeavesTheFieldsAsTheyWere) {
  Choose(u"DocNo"_s, 1, 1, 1);
  EXPECT_THROW(SaveSimSearch(u"Lwdj"_s, {{u"题名"_s, u"Amaintitle"_s}, {u"'"_s, u"'"_s}}), DataError);
  EXPECT_EQ(Saved(), QStringList{u"DocNo|DocNo字|1|1|1"_s});
}

TEST_P(SearchFieldsTest, QuotesAndBracketsInCaptionsAreSavedAsTheyAre) {
  SaveSimSearch(u"Lwdj"_s, {{u"题'名[1]"_s, u"Amaintitle"_s}});
  EXPECT_EQ(Saved(), QStringList{u"Amaintitle|题'名[1]|1|1|1"_s});
}

TEST_P(SearchFieldsTest, ChosenFieldsAreNotOfferedAnyMoreWhichTheCaptionTells) {
  Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo) values ('Lwdj','DocNo','文号',2)"_s);
  Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo) values ('Lwdj','Gone','旧字段',1)"_s);
  TakeStatements();
  const auto chosen = ReadChosenFields(u"Lwdj"_s);
  EXPECT_EQ(chosen, (std::vector<NamedField>{{u"旧字段"_s, u"Gone"_s}, {u"文号"_s, u"DocNo"_s}}));
  const auto offered = ReadOfferedFields(u"Lwdj"_s, chosen);
  EXPECT_EQ(offered.size(), 5u);
  EXPECT_EQ(offered.front(), (NamedField{u"登记号"_s, u"RegID"_s}));
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select DataField,ChnDataField from SimSearch where Tablename='Lwdj' Order By OrderNo"_s,
                         u"Select ChnFieldname,FieldName From DynamicWindows Where TableName='Lwdj'"_s}));
}

TEST_P(SearchFieldsTest, IndexesThatWereEditedIntoNoneGetTheNextOneThatIsFree) {
  Choose(u"A"_s, 1, 1, 0);
  Choose(u"B"_s, 2, 1, 2);
  Choose(u"C"_s, 3, 1, 2);
  Choose(u"D"_s, 4, 2, -7);
  Choose(u"E"_s, 5, 1, 30000);
  QStringList indexes;
  for (const SearchFieldRow& field : ReadSearchFields(u"Lwdj"_s))
    indexes << field.dataField + QString::number(field.ctlIndex);
  EXPECT_EQ(indexes.join(u' '), u"A1 B2 C3 D1 E30000"_s);
}

}  // namespace
}  // namespace folvane::test
