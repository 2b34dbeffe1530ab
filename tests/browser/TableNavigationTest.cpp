#include <QMenu>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

class TableNavigationTest : public BrowserTest {
 protected:
  /// Lwdj with two records of 2002 and one of 2001, and its year nodes.
  void AddYears() {
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
    design_->AddRecords(u"Lwdj"_s, 3);
    design_->Run(u"update Lwdj set CreatedDate = '2002-01-02'"_s);
    design_->Run(u"update Lwdj set CreatedDate = '2001-05-06' where RegID = 1"_s);
    program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=CreatedDate\r\n");
  }
};

testing::Matcher<QString> ReadsRecordsOf(const QString& table) {
  return testing::Truly([table](const QString& text) { return text.startsWith(u"Select * From "_s + table + u' '); });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(TableNavigationTest);

TEST_P(TableNavigationTest, ATableShowsItsRecordsByItsDesign) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->AddRecords(u"Fwdj"_s, 2);
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"题名"_s, u"ID"_s}));
    EXPECT_EQ(browser.List().columnWidth(2), 1);
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), (QStringList{u"题名2"_s, u"题名1"_s}));
    EXPECT_EQ(browser.Row(), 1);
  });
}

TEST_P(TableNavigationTest, ATableChosenTwiceIsNotReadAgain) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    log_->Take();
    browser.Choose(u"Lwdj"_s);
    EXPECT_THAT(log_->Take(), Not(Contains(ReadsRecordsOf(u"Lwdj"_s))));
  });
}

TEST_P(TableNavigationTest, ATableIsReadOnceForAClickAndForAKey) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    log_->Take();
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(log_->Take().filter(u"Select * From Fwdj"_s).size(), 1);
    Press(browser.View(u"TV_File"_s), Qt::Key_Up);
    EXPECT_EQ(log_->Take().filter(u"Select * From Lwdj"_s).size(), 1);
    browser.View(u"TV_File"_s).setCurrentIndex(browser.Node(u"Fwdj"_s));
    EXPECT_EQ(log_->Take().filter(u"Select * From Fwdj"_s).size(), 1);
  });
}

TEST_P(TableNavigationTest, AClassEmptiesTheListAndLoadsItsTablesOnce) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddClass(3, u"科技"_s);
  design_->AddPlainTable(u"Kj"_s, u"科技文件"_s, 3);
  InBrowser([&](const Browser& browser) {
    log_->Take();
    browser.Choose(u"C3\\"_s);
    EXPECT_EQ(log_->Take().first(),
              u"Select TableName,ChnTableName,RelationField From Design_TableRelation Where ClassId = 3 And "
              "(Table_Parent = '' Or Table_Parent is null)"_s);
    EXPECT_EQ(browser.KeysBelow(u"C3\\"_s), QStringList{u"Kj"_s});
    EXPECT_EQ(browser.List().model()->columnCount(), 0);
    EXPECT_EQ(browser.Status(), QString());
    EXPECT_FALSE(Find(browser.Window(), u"FraSearch"_s).isEnabled());
    EXPECT_FALSE(browser.On(u"mnu_Report"_s));
    EXPECT_FALSE(browser.KeyOn(u"Refresh"_s));
    browser.Choose(u"C2\\"_s);
    browser.Choose(u"C3\\"_s);
    EXPECT_THAT(log_->Take(), ElementsAre());
  });
}

TEST_P(TableNavigationTest, AfterAClassTheSameTableIsReadAgain) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"C2\\"_s);
    log_->Take();
    browser.Choose(u"Lwdj"_s);
    EXPECT_THAT(log_->Take(), Contains(ReadsRecordsOf(u"Lwdj"_s)));
    EXPECT_TRUE(Find(browser.Window(), u"FraSearch"_s).isEnabled());
  });
}

TEST_P(TableNavigationTest, ATableWithADateOpensWithThisYear) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2, true);
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(browser.Parameter(u"Fwdj"_s, 2), u"Left(CreatedDate,4) = '2002'"_s);
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
  });
}

TEST_P(TableNavigationTest, AYearNodeLimitsTheListAndItsTableLeavesItThere) {
  AddYears();
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.KeysBelow(u"Lwdj"_s), (QStringList{u"Lwdj-2002"_s, u"Lwdj-2001"_s}));
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"3"_s, u"2"_s}));
    log_->Take();
    browser.Choose(u"Lwdj-2001"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"1"_s});
    EXPECT_THAT(log_->Take(),
                Contains(u"Select * From Lwdj Where Left(CreatedDate,4) = '2001' Order By ArchiveId Desc"_s));
    browser.Choose(u"Lwdj"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"1"_s});
    EXPECT_THAT(log_->Take(), ElementsAre());
  });
  EXPECT_EQ(Remembered(), u"Lwdj,Left(CreatedDate,4) = '2001'"_s);
}

TEST_P(TableNavigationTest, AChangeOfTheGroupingShowsWithoutARestart) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 2);
  InBrowser([&](const Browser& browser) {
    program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=Amaintitle\r\n");
    browser.Choose(u"Lwdj"_s);
    EXPECT_EQ(browser.KeysBelow(u"Lwdj"_s), (QStringList{u"Lwdj-题名2"_s, u"Lwdj-题名1"_s}));
    browser.Choose(u"Lwdj-题名1"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Amaintitle ='题名1'"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"1"_s});
  });
}

TEST_P(TableNavigationTest, ASecondLevelValueWithAQuoteBreaksTheFilterAndTheWindowGoesOn) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 2);
  design_->Run(u"update Lwdj set Amaintitle = 'a''b' where RegID = 1"_s);
  program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=Amaintitle\r\n");
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Lwdj-a'b"_s);
    EXPECT_TRUE(messages.Last().text.startsWith(u"程序出错，请将下列出错提示向程序供应商联系！"_s));
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList());
    browser.Choose(u"Lwdj-题名2"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"2"_s});
  });
}

TEST_P(TableNavigationTest, ATableNameContainingAHyphenCannotHaveSecondLevelNodes) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 3);
  design_->Insert(u"Design_TableRelation"_s, u"TableName,ChnTableName,ClassID"_s, {u"Lwdj-2"_s, u"来文二"_s, u"2"_s});
  design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {u"7"_s, u"机关代字"_s});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name"_s, {u"7"_s, u"国发"_s});
  program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=0\r\nLwdj-2=DocNo\r\n");
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"*\\"_s);
    log_->Take();
    browser.Choose(u"Lwdj-2-国发"_s);
    EXPECT_THAT(log_->Take(), Contains(ReadsRecordsOf(u"Lwdj"_s))) << "split at the first hyphen";
  });
}

TEST_P(TableNavigationTest, AnOrderThatIsNoLongerValidLeavesTheRecordsClosed) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->Insert(u"FindCirOrder"_s, u"TableName,OrderStr,UserID"_s, {u"Lwdj"_s, u"Gone Asc"_s, u"1"_s});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
    EXPECT_FALSE(browser.KeyOn(u"NextPage"_s));
    browser.Choose(u"Fwdj"_s);
    EXPECT_TRUE(Shared().CurrentRecords.IsOpen());
  });
}

TEST_P(TableNavigationTest, ATableThatTheDatabaseLacksIsToldAndTheWindowGoesOn) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 1);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->Run(u"drop table Fwdj"_s);
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(messages.Requests().size(), 1u);
    browser.Choose(u"Lwdj"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"1"_s});
  });
}

TEST_P(TableNavigationTest, AUserWithoutRightsSeesTheTableAndNoRecord) {
  Shared().UserId = u"5"_s;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 2);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_FALSE(browser.On(u"mnu_Report"_s));
    EXPECT_FALSE(Find(browser.Window(), u"LVFile"_s).isEnabled());
    EXPECT_FALSE(browser.On(u"mnu_Manager"_s));
    EXPECT_THAT(log_->Take(), Contains(u"Select * From Lwdj Where 1 = 2 Order By ArchiveId Desc"_s));
  });
}

TEST_P(TableNavigationTest, TheRightsOfTheUserLimitTheListAndEnableTheCommands) {
  Shared().UserId = u"5"_s;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 3);
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Lwdj"_s, u"浏览"_s, u"1"_s, u"1"_s, u"1"_s, u"RegID > 1"_s});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"3"_s, u"2"_s}));
    EXPECT_TRUE(browser.On(u"mnu_Report"_s));
    EXPECT_TRUE(browser.On(u"mnu_Manager"_s));
    EXPECT_TRUE(Find(browser.Window(), u"LVFile"_s).isEnabled());
  });
}

TEST_P(TableNavigationTest, ATableWithoutReportsShowsTheOneEntryThatSaysSo) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    const QAction& only = FindAction(browser.Window(), u"mnu_Report"_s, u"mnu_Report_List(1)"_s);
    EXPECT_EQ(only.text(), u"文件报表(无)"_s);
    EXPECT_EQ(only.property("Tag").toString(), u"0"_s);
    EXPECT_EQ(Find<QMenu>(browser.Window(), u"mnu_Report"_s).actions().size(), 1);
  });
}

TEST_P(TableNavigationTest, ClickingTheEntryThatSaysThereIsNoReportDoesNothing) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    QMenu& menu = Find<QMenu>(browser.Window(), u"mnu_Report"_s);
    menu.popup(browser.Window().mapToGlobal(QPoint(200, 60)));
    log_->Take();
    ClickAt(menu, menu.actionGeometry(menu.actions().first()).center());
    menu.close();
    EXPECT_EQ(log_->Take(), QStringList());
    EXPECT_TRUE(messages.Requests().empty());
  });
}

TEST_P(TableNavigationTest, TheReportMenuOffersTheReportsOfTheTableOfTypeOne) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  const QString columns = u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s;
  design_->Insert(u"Report_Index"_s, columns, {u"11"_s, u"目录"_s, u"Lwdj"_s, u"1"_s});
  design_->Insert(u"Report_Index"_s, columns, {u"12"_s, u"卡片"_s, u"Lwdj"_s, u"1"_s});
  design_->Insert(u"Report_Index"_s, columns, {u"13"_s, u"年报"_s, u"Lwdj"_s, u"2"_s});
  InBrowser([&](const Browser& browser) {
    const QAction& second = FindAction(browser.Window(), u"mnu_Report"_s, u"mnu_Report_List(2)"_s);
    EXPECT_EQ(second.text(), u"卡片"_s);
    EXPECT_EQ(second.property("Tag").toString(), u"12"_s);
    EXPECT_EQ(Find<QMenu>(browser.Window(), u"mnu_Report"_s).actions().size(), 2);
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(Find<QMenu>(browser.Window(), u"mnu_Report"_s).actions().size(), 1);
    EXPECT_EQ(FindAction(browser.Window(), u"mnu_Report"_s, u"mnu_Report_List(1)"_s).text(), u"文件报表(无)"_s);
  });
}

}  // namespace folvane::test
