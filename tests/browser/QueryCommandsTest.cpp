#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "bulk/FrmRecordMove.h"
#include "query/FrmOrderBy.h"
#include "query/FrmReadOrder.h"
#include "query/frmSimFind.h"
#include "query/frmfhfind.h"
#include "shell/DefaultInstance.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::Not;
using testing::StartsWith;

namespace {

/// A list of forty records of Lwdj, the newest first.
class QueryCommandsTest : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    design_->AddRecords(u"Lwdj"_s, 40);
  }
  QString StoredOrder() { return design_->Value(u"select OrderStr from FindCirOrder"_s); }
};

// What a window leaves to whoever opened it, without the way there.
template <typename Window>
void Leave(const QString& name, const std::function<void(Window&)>& result) {
  WithWindow(name, [result](QWidget& window) {
    result(static_cast<Window&>(window));
    window.hide();
  });
}

void LeaveCompoundQuery(const QString& condition) {
  Leave<frmfhfind>(u"frmfhfind"_s, [condition](frmfhfind& window) { window.ReturnSql = condition; });
}

void LeaveSimpleQuery(const QString& condition) {
  Leave<frmSimFind>(u"frmSimFind"_s, [condition](frmSimFind& window) { window.ReturnSql = condition; });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(QueryCommandsTest);

TEST_P(QueryCommandsTest, ACompoundQueryReplacesTheFilterOfTheTable) {
  InBrowser([&](const Browser& browser) {
    Leave<frmfhfind>(u"frmfhfind"_s, [](frmfhfind& window) {
      EXPECT_EQ(window.FormTag, u"Lwdj"_s);
      EXPECT_EQ(window.M_Condition, QString());
      window.ReturnSql = u"Lwdj.RegID <= '3'"_s;
    });
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Lwdj.RegID <= '3'"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共3条"_s);
    EXPECT_FALSE(DefaultInstance<frmfhfind>::IsLoaded());
    EXPECT_THAT(log_->Take(), Contains(u"Select * From Lwdj Where Lwdj.RegID <= '3' Order By ArchiveId Desc"_s));
  });
}

TEST_P(QueryCommandsTest, ASimpleQueryIsAskedByTheSearchKey) {
  InBrowser([&](const Browser& browser) {
    Leave<frmSimFind>(u"frmSimFind"_s, [](frmSimFind& window) {
      EXPECT_EQ(window.TableName, u"Lwdj"_s);
      window.ReturnSql = u"Lwdj.Amaintitle Like '%题名4%'"_s;
    });
    browser.Key(u"Search"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"40"_s, u"4"_s}));
    EXPECT_FALSE(DefaultInstance<frmSimFind>::IsLoaded());
  });
}

TEST_P(QueryCommandsTest, AQueryThatIsLeftWithoutAResultChangesNothing) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(4, 0));
    log_->Take();
    LeaveCompoundQuery({});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Row(), 5);
    EXPECT_THAT(log_->Take(), Not(Contains(u"Select * From Lwdj Order By ArchiveId Desc"_s)));
  });
}

TEST_P(QueryCommandsTest, AQueryWithoutAHitLeavesAnEmptyListAndRefreshBringsAllBack) {
  InBrowser([&](const Browser& browser) {
    LeaveSimpleQuery(u"Lwdj.RegID = '99'"_s);
    browser.Entry(u"mnu_Tool5_LSearch"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_FALSE(browser.KeyOn(u"Del"_s));
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共40条"_s);
    EXPECT_TRUE(browser.KeyOn(u"Del"_s));
  });
}

TEST_P(QueryCommandsTest, AQueryThatTheDatabaseRefusesIsToldAndTheWindowGoesOn) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    LeaveCompoundQuery(u"Lwdj.Amaintitle = 'it's'"_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_FALSE(Shared().CurrentRecords.IsOpen());
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共40条"_s);
  });
}

TEST_P(QueryCommandsTest, AKeyOfTheToolbarThatTheDatabaseRefusesEndsAndTheStatusLineTells) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    LeaveSimpleQuery(u"Lwdj.NoSuchField = 1"_s);
    browser.Key(u"Search"_s).trigger();
    EXPECT_TRUE(messages.Requests().empty());
    EXPECT_THAT(TextIn(browser.Window(), u"Notice"_s).toStdString(), StartsWith("未能完成："));
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(TextIn(browser.Window(), u"Notice"_s), QString());
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共40条"_s);
  });
}

TEST_P(QueryCommandsTest, AQueryThatJoinsByOrShowsNothingThatTheUserMayNotSee) {
  Shared().UserId = u"5"_s;
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Lwdj"_s, u"浏览"_s, u"1"_s, u"1"_s, u"1"_s, u"RegID > 20"_s});
  InBrowser([&](const Browser& browser) {
    LeaveCompoundQuery(u"Lwdj.RegID = '3' or Lwdj.RegID = '30'  "_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList{u"30"_s});
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Lwdj.RegID = '3' or Lwdj.RegID = '30'  "_s);
  });
}

TEST_P(QueryCommandsTest, AQueryForgetsTheConditionFromTheTableAbove) {
  design_->AddTable(u"Jn"_s, u"卷内"_s, 2, {{u"RegID"_s, u"登记号"_s, u"数值型"_s}}, u"Lwdj"_s, u"RegID"_s);
  InBrowser([&](const Browser& browser) {
    DoubleClickItem(browser.List(), browser.List().model()->index(0, 0));
    ASSERT_EQ(browser.View(u"LV_Para"_s).property("Tag").toString(), u"RegID = '40'"_s);
    LeaveCompoundQuery({});
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(browser.View(u"LV_Para"_s).property("Tag").toString(), QString());
  });
}

TEST_P(QueryCommandsTest, SortingKeepsTheSelectedRecordAndTakesTheArrowsAway) {
  InBrowser([&](const Browser& browser) {
    browser.ClickColumn(0);
    ASSERT_EQ(browser.Captions().first(), u"↑登记号"_s);
    browser.List().setCurrentIndex(browser.List().model()->index(0, 0));
    Leave<FrmOrderBy>(u"FrmOrderBy"_s, [](FrmOrderBy& window) {
      EXPECT_EQ(window.TableName, u"Lwdj"_s);
      EXPECT_EQ(window.OldOrder, u"RegID Asc"_s);
      window.ReturnSql = u"RegID Desc,Amaintitle Asc"_s;
    });
    browser.Entry(u"mnu_Tool3_Sort"_s).trigger();
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"题名"_s, u"ID"_s}));
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"RegID Desc,Amaintitle Asc"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第%1条/共40条"_s.arg(41 - browser.Cell().toInt()));
    EXPECT_EQ(StoredOrder(), u"RegID Asc"_s) << "the window has stored the order itself, or not";
    EXPECT_FALSE(DefaultInstance<FrmOrderBy>::IsLoaded());
  });
}

TEST_P(QueryCommandsTest, SortingAnEmptyListOpensNothing) {
  design_->Run(u"delete from Lwdj"_s);
  InBrowser([&](const Browser& browser) { browser.Entry(u"mnu_Tool3_Sort"_s).trigger(); });
}

TEST_P(QueryCommandsTest, AnOrderThatIsLeftAsItWasIsNotReadAgain) {
  InBrowser([&](const Browser& browser) {
    ClickItem(browser.List(), browser.List().model()->index(2, 0));
    Leave<FrmOrderBy>(u"FrmOrderBy"_s, [](FrmOrderBy&) {});
    browser.Entry(u"mnu_Tool3_Sort"_s).trigger();
    EXPECT_EQ(browser.Row(), 3);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"ArchiveId Desc"_s);
  });
}

TEST_P(QueryCommandsTest, AnOrderThatTheDatabaseRefusesLeavesTheListAsItWas) {
  MessageBoxes messages;
  InBrowser([&](const Browser& browser) {
    Leave<FrmOrderBy>(u"FrmOrderBy"_s, [](FrmOrderBy& window) { window.ReturnSql = u"NoSuchField Asc"_s; });
    browser.Entry(u"mnu_Tool3_Sort"_s).trigger();
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共40条"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"ArchiveId Desc"_s);
  });
}

TEST_P(QueryCommandsTest, TheBrowseOrderIsSetForFileTables) {
  InBrowser([&](const Browser& browser) {
    Leave<FrmReadOrder>(u"FrmReadOrder"_s, [](FrmReadOrder& window) { EXPECT_EQ(window.vsFlag, 1); });
    browser.Entry(u"Mnu_ReadOrder"_s).trigger();
    EXPECT_FALSE(DefaultInstance<FrmReadOrder>::IsLoaded());
  });
}

TEST_P(QueryCommandsTest, ARecordIsGoneToByItsNumber) {
  InBrowser([&](const Browser& browser) {
    const auto go = [&](const QString& entry, const QString& number) {
      WithWindow(u"FrmRecordMove"_s, [number](QWidget& window) {
        Type(Find(window, u"TxtMoveNo"_s), number);
        Press(Find(window, u"TxtMoveNo"_s), Qt::Key_Return);
      });
      browser.Entry(entry).trigger();
    };
    go(u"mnu_Goto4_Location"_s, u"35"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第35条/共40条"_s);
    go(u"mnu_Goto4_Location"_s, u"99"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第40条/共40条"_s) << "limited to the last";
    go(u"mnu_Goto4A_Location"_s, u"2"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第30条/共40条"_s) << "thirty records stand before the second page";
    go(u"mnu_Goto4A_Location"_s, u"1"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第30条/共40条"_s) << "the first page is no move";
    EXPECT_FALSE(DefaultInstance<FrmRecordMove>::IsLoaded());
  });
}

}  // namespace folvane::test
