#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "browser/BrowserTest.h"
#include "browser/FrmMain.h"
#include "browser/TableNavigation.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {
class BrowserStartTest : public BrowserTest {};
}  // namespace

FOLVANE_ON_EACH_DATABASE(BrowserStartTest);

TEST_P(BrowserStartTest, TheRoadFromTheStartToAFilledList) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
  design_->AddRecords(u"Lwdj"_s, 1);
  design_->Run(u"update Lwdj set CreatedDate = '2002-01-02'"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), QStringList{u"题名1"_s});
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共1条"_s);
  });
  EXPECT_THAT(
      log_->Take(),
      ElementsAre(
          u"Select * From DataTransfer_Ini"_s,
          u"Select ClassId,ClassName From Design_ClassRelation Where Class_Parent = 1"_s,
          u"Select ClassId,ClassName From Design_ClassRelation Where Class_Parent = 2"_s,
          u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '2002123456789'"_s,
          u"Insert Into Report_Info(Report_Id,Info_Description) Values('2002123456789','"_s + program_.Path() +
              u"\\Data')"_s,
          u"Select ClassID From Design_TableRelation Where TableName = 'Lwdj'"_s,
          u"Select TableName,ChnTableName,RelationField From Design_TableRelation Where ClassId = 2 And (Table_Parent "
          u"= "
          "'' Or Table_Parent is null)"_s,
          u"Select OrderStr From FindCirOrder Where TableName = 'Lwdj' and UserID=1"_s,
          u"Insert into FindCirOrder(TableName,OrderStr,UserID) Values('Lwdj','ArchiveId Desc',1)"_s,
          u"Select TableName,ChnTableName,RelationField From Design_TableRelation Where ClassId = 2 And Table_Parent = "
          "'Lwdj'"_s,
          u"Select ChnFieldName from DynamicWindows Where TableName='Lwdj' and FieldName='CREATEDDATE'"_s,
          u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where Tablename='Lwdj' Order By OrderNo"_s,
          u"Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,SimSearch.FieldValue "
          "From DynamicWindows,SimSearch Where DynamicWindows.TableName=SimSearch.TableName And "
          "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = 'Lwdj' Order By "
          "SimSearch.OrderNo"_s,
          u"Select Report_Name,Report_ID From Report_Index where Report_Group_Id ='Lwdj' and report_type = '1'"_s,
          u"Select * From Lwdj Where Left(CreatedDate,4) = '2002' Order By ArchiveId Desc"_s,
          u"Select * From Original_Text Where RecordID = '00000000000000000001'"_s,
          u"Select * from Original_Text Where RecordId='00000000000000000001'  Order By FileOrder"_s));
}

TEST_P(BrowserStartTest, TheTreeShowsTheClassesAndTheTablesBesideTheFirst) {
  design_->AddClass(3, u"科技"_s);
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Kj"_s, u"科技文件"_s, 3);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Node(u"*\\"_s).data().toString(), u"公文总库"_s);
    EXPECT_EQ(browser.KeysBelow(u"*\\"_s), (QStringList{u"C2\\"_s, u"C3\\"_s}));
    EXPECT_EQ(browser.KeysBelow(u"C2\\"_s), QStringList{u"Lwdj"_s});
    EXPECT_EQ(browser.KeysBelow(u"C3\\"_s), QStringList()) << "until the class is opened";
    EXPECT_TRUE(browser.View(u"TV_File"_s).isExpanded(browser.Node(u"*\\"_s)));
    EXPECT_TRUE(browser.View(u"TV_File"_s).isExpanded(browser.Node(u"C2\\"_s)));
    EXPECT_EQ(browser.View(u"TV_File"_s).currentIndex(), browser.Node(u"Lwdj"_s));
    EXPECT_EQ(browser.View(u"LV_Para"_s).currentIndex().data().toString(), u"Lwdj"_s);
    EXPECT_EQ(Find<QObject>(browser.Window(), u"ProMain"_s).property("Tag").toString(), u"1"_s);
    EXPECT_EQ(TextIn(browser.Window(), u"UserName"_s), u"登录用户：管理员"_s);
  });
}

TEST_P(BrowserStartTest, TheRememberedTableAndConditionComeBack) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->AddRecords(u"Fwdj"_s, 5);
  Remember(u"fwdj,RegID > 3"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"5"_s, u"4"_s}));
    EXPECT_EQ(browser.Parameter(u"Fwdj"_s, 2), u"RegID > 3"_s);
  });
  EXPECT_EQ(Remembered(), u"Fwdj,RegID > 3"_s);
}

TEST_P(BrowserStartTest, ATableNoLongerInTheDesignLeavesAnEmptyListWithoutAMessage) {
  Remember(u"Gone,RegID > 3"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.List().model()->columnCount(), 0);
    EXPECT_EQ(browser.Status(), QString());
    EXPECT_FALSE(browser.KeyOn(u"Refresh"_s));
    EXPECT_FALSE(browser.On(u"mnu_Goto"_s));
  });
  EXPECT_EQ(Remembered(), QString());
}

TEST_P(BrowserStartTest, ATableWhoseClassIsGoneLeavesAnEmptyListWithoutAMessage) {
  design_->AddPlainTable(u"Kj"_s, u"科技文件"_s, 3);
  Remember(u"Kj,"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.List().model()->columnCount(), 0);
    EXPECT_EQ(browser.KeysBelow(u"*\\"_s), QStringList{u"C2\\"_s});
  });
  EXPECT_EQ(Remembered(), QString());
}

TEST_P(BrowserStartTest, ATableWithADateAndNothingThisYearIsEmptyUntilRefreshShowsAllYears) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
  design_->AddRecords(u"Lwdj"_s, 2);
  design_->Run(u"update Lwdj set CreatedDate = '2001-12-31'"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList());
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"2"_s, u"1"_s}));
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), QString());
  });
}

TEST_P(BrowserStartTest, AnEmptyUserIdFailsForTheHost) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  Shared().UserId.clear();
  EXPECT_THROW(ShowRecordBrowser(), DataError);
}

TEST_P(BrowserStartTest, AMissingDesignTableFailsForTheHostAndTheNextStartWorks) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->Run(u"alter table DataTransfer_Ini rename to Away"_s);
  EXPECT_THROW(ShowRecordBrowser(), DataError);
  design_->Run(u"alter table Away rename to DataTransfer_Ini"_s);
  InBrowser([&](const Browser& browser) { EXPECT_EQ(browser.KeysBelow(u"C2\\"_s), QStringList{u"Lwdj"_s}); });
}

TEST_P(BrowserStartTest, EachEntryBuildsTheTreeAnew) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([](const Browser&) {});
  design_->AddClass(4, u"声像"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.KeysBelow(u"*\\"_s), (QStringList{u"C2\\"_s, u"C4\\"_s}));
  });
}

TEST_P(BrowserStartTest, TheExitKeyClosesTheWindow) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    browser.Key(u"EXIT"_s).trigger();
    EXPECT_FALSE(browser.Window().isVisible());
  });
  EXPECT_EQ(Remembered(), u"Lwdj,"_s);
  EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
}

TEST(LastTableTest, TheFilterStandsBehindTheFirstComma) {
  EXPECT_EQ(LastTable::FromText(QString()).table, u"Lwdj"_s) << "the usual first table";
  EXPECT_EQ(LastTable::FromText(u"Fwdj"_s).table, u"Fwdj"_s);
  const LastTable last = LastTable::FromText(u" Fwdj,Left(CreatedDate,4) = '2001' "_s);
  EXPECT_EQ(last.table, u"Fwdj"_s);
  EXPECT_EQ(last.filter, u"Left(CreatedDate,4) = '2001'"_s);
  EXPECT_EQ(last.ToText(), u"Fwdj,Left(CreatedDate,4) = '2001'"_s);
}

}  // namespace folvane::test
