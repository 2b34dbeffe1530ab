#include <gtest/gtest.h>

#include "catalogue/Ddl.h"
#include "catalogue/FieldRows.h"
#include "catalogue/FlowRows.h"
#include "catalogue/OriginalRows.h"
#include "catalogue/QueryRows.h"
#include "catalogue/ReadRows.h"
#include "catalogue/TreeRows.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Rows : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Furnish(&CreateCatalogue);
  }
};
FOLVANE_ON_EACH_DATABASE(Rows);

TEST_P(Rows, AreReadByTheNamesOfTheirColumnsInWhateverSpelling) {
  Database().Native(
      u"insert into Design_TableRelation(TableName,ChnTableName,ClassId,Table_Parent,RelationField) "
      "values('Items','卷内文件',4,'Volumes','FolderNo')"_s);
  const auto rows = ReadRows<TableRelationRow>(
      Connected(),
      u"Select TABLENAME,ChnTableName,relationfield,ClassID From Design_TableRelation Where ClassId = 4"_s);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].tableName, u"Items"_s);
  EXPECT_EQ(rows[0].chnTableName, u"卷内文件"_s);
  EXPECT_EQ(rows[0].classId, 4);
  EXPECT_EQ(rows[0].relationField, u"FolderNo"_s);
  EXPECT_EQ(rows[0].tableParent, QString()) << "not asked for";
}

TEST_P(Rows, GiveANullAsAnEmptyTextOrZero) {
  Database().Native(u"insert into SimSearch(TableName,DataField) values('Lwdj','DocNo')"_s);
  const auto rows =
      ReadRows<SearchFieldRow>(Connected(), u"Select * from SimSearch Where TableName = 'Lwdj' Order By OrderNo"_s);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_TRUE(rows[0].fieldValue.isEmpty());
  EXPECT_EQ(rows[0].orderNo, 0);
}

TEST_P(Rows, ComeInTheOrderOfTheStatement) {
  Database().Native(
      u"insert into ListViewFormat(TableName,FieldName,ColumnWidth,OrderNo) "
      "values('Lwdj','DocNo',900,2),('Lwdj','RegID',600,1)"_s);
  const auto rows = ReadRows<ListColumnFormatRow>(
      Connected(),
      u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where Tablename='Lwdj' Order By OrderNo"_s);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].fieldName, u"RegID"_s);
  EXPECT_EQ(rows[1].columnWidth, 900);
}

TEST_P(Rows, OfTheThreeFlowsFillTheSameMembers) {
  Database().Native(
      u"insert into Distribute_File(Register_ID,Distribute_ID,Distribute_Status) values('d','D1','已分发')"_s);
  Database().Native(u"insert into PassRead_File(Register_ID,PassRead_ID,PassRead_Status) values('p','P1','传阅中')"_s);
  Database().Native(
      u"insert into Transact_Details(Register_ID,File_ID,Send_Date,Is_Hasten) values('t',3,'2024-03-15','1')"_s);

  const auto given = ReadRows<FlowHeadRow>(Connected(), u"select * from Distribute_File"_s);
  EXPECT_EQ(given.at(0).flowId, u"D1"_s);
  EXPECT_EQ(given.at(0).status, u"已分发"_s);
  const auto passed = ReadRows<FlowHeadRow>(Connected(), u"select * from PassRead_File"_s);
  EXPECT_EQ(passed.at(0).flowId, u"P1"_s);
  EXPECT_EQ(passed.at(0).status, u"传阅中"_s);
  const auto lines = ReadRows<FlowDetailRow>(Connected(), u"select * from TranSact_Details where Register_ID='t'"_s);
  EXPECT_EQ(lines.at(0).fileId, 3);
  EXPECT_EQ(lines.at(0).sentDate, u"2024-03-15"_s);
  EXPECT_EQ(lines.at(0).isHasten, u"1"_s);
}

TEST_P(Rows, OfNothingAreNone) {
  EXPECT_TRUE(
      ReadRows<OriginalRow>(Connected(), u"Select * from Original_Text Where RecordId='x'  Order By FileOrder"_s)
          .empty());
  EXPECT_TRUE(ReadRows<BrowseOrderRow>(Connected(), u"Select * From FindCirOrder Where UserID=2"_s).empty());
}

}  // namespace
}  // namespace folvane::test
