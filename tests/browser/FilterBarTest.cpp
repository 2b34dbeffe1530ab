#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <gmock/gmock.h>

#include <folvane/ReportRequest.h>

#include "browser/BrowserTest.h"
#include "query/frmSimFind.h"
#include "query/frmfhfind.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Letters of 2002 and of 2001 with a node for each year, and a search bar for their titles.
class FilterBarTest : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
    design_->AddRecords(u"Lwdj"_s, 3);
    design_->Run(u"update Lwdj set CreatedDate = '2002-01-02'"_s);
    design_->Run(u"update Lwdj set CreatedDate = '2001-05-06' where RegID = 1"_s);
    design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,FieldValue"_s,
                    {u"Lwdj"_s, u"Amaintitle"_s, u"题名"_s, u"1"_s, u"@旧@"_s});
    program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=CreatedDate\r\n");
  }
};

QToolButton& LiftKey(const Browser& browser) { return Find<QToolButton>(browser.Window(), u"LiftFilter"_s); }

// What the key above the list says, "" when there is none.
QString Limit(const Browser& browser) {
  QToolButton& key = LiftKey(browser);
  return key.isVisible() ? key.text().section(u"  ✕"_s, 0, 0) : QString();
}

QString Rights(const Browser& browser) {
  const QLabel& rights = Find<QLabel>(browser.Window(), u"FilterRights"_s);
  return rights.isVisible() ? rights.text() : QString();
}

QString SelectedNode(const Browser& browser) {
  return browser.View(u"TV_File"_s).currentIndex().data(Qt::UserRole).toString();
}

void QuickSearchFor(const Browser& browser, const QString& value) {
  Find<QComboBox>(browser.Window(), u"CboValue"_s).setEditText(value);
  Click(Find<QPushButton>(browser.Window(), u"CmdSearch"_s));
}

template <typename Window>
void LeaveQuery(const QString& name, const QString& condition, const QString& words = {}) {
  WithWindow(name, [=](QWidget& window) {
    auto& query = static_cast<Window&>(window);
    query.ReturnSql = condition;
    if constexpr (requires { query.InForce; }) query.InForce = words;
    window.hide();
  });
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(FilterBarTest);

TEST_P(FilterBarTest, TheYearOfTheListStandsAboveItAndItsKeyLiftsIt) {
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Limit(browser), u"年度：2002"_s);
    EXPECT_EQ(LiftKey(browser).accessibleName(), u"取消限制：年度：2002"_s);
    EXPECT_NE(LiftKey(browser).focusPolicy() & Qt::TabFocus, 0);
    LiftKey(browser).setFocus();
    Press(LiftKey(browser), Qt::Key_Space);
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), QString());
    EXPECT_EQ(Limit(browser), QString());
    EXPECT_EQ(TextIn(browser.Window(), u"FilterNote"_s), u"当前显示：全部记录"_s);
    EXPECT_TRUE(browser.List().hasFocus());
  });
}

TEST_P(FilterBarTest, TheYearNodeIsSelectedOnlyWhileItsYearIsInForce) {
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Lwdj-2001"_s);
    EXPECT_EQ(Limit(browser), u"年度：2001"_s);
    log_->Take();
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(SelectedNode(browser), u"Lwdj"_s);
    EXPECT_EQ(log_->Take().filter(u"Select * From Lwdj"_s),
              QStringList{u"Select * From Lwdj Order By ArchiveId Desc"_s})
        << "following is no choice";
    browser.Choose(u"Lwdj-2001"_s);
    LeaveQuery<frmfhfind>(u"frmfhfind"_s, u"Lwdj.RegID <= '2'"_s, u"登记号 小于等于 2"_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(SelectedNode(browser), u"Lwdj"_s);
    EXPECT_EQ(Limit(browser), u"查询：登记号 小于等于 2"_s);
  });
}

TEST_P(FilterBarTest, ATableChosenAfterItsYearLeavesTheListAndTheBarSaysSo) {
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"Lwdj-2001"_s);
    browser.Choose(u"Lwdj"_s);
    EXPECT_EQ(Limit(browser), u"年度：2001"_s);
    EXPECT_EQ(browser.Notice(), u"列表仍按“年度：2001”显示，按 F5 显示全部"_s);
  });
}

TEST_P(FilterBarTest, AYearThatIsSetAsideWithoutReadingIsNotClaimed) {
  program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=0\r\n");
  InBrowser([&](const Browser& browser) {
    browser.Key(u"Refresh"_s).trigger();
    browser.Choose(u"Lwdj"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Left(CreatedDate,4) = '2002'"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 3);
    EXPECT_EQ(Limit(browser), QString());
  });
}

TEST_P(FilterBarTest, ABatchUpdateAndAReportKeepToTheRecordsInView) {
  program_.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=0\r\n");
  design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                  {u"77"_s, u"收文簿"_s, u"Lwdj"_s, u"1"_s});
  QStringList filters;
  Services().runReport = [&](const ReportRequest& request) { filters << request.filter; };
  InBrowser([&](const Browser& browser) {
    const auto chooseAnew = [&] {
      browser.Choose(u"Lwdj"_s);
      EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), u"Left(CreatedDate,4) = '2002'"_s);
      EXPECT_EQ(browser.List().model()->rowCount(), 3);
    };
    browser.Key(u"Refresh"_s).trigger();
    chooseAnew();
    WithWindow(u"FrmBactchUpdate"_s,
               [&](QWidget&) { EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 2), QString()) << "what a fill is limited to"; });
    browser.Entry(u"mnu_Tool1_BUpdate"_s).trigger();
    chooseAnew();
    browser.Entry(u"mnu_Report_List(1)"_s).trigger();
  });
  EXPECT_EQ(filters, QStringList{QString()});
}

TEST_P(FilterBarTest, AWordLeavesTheSearchBoxWithItsSearchAndStaysInItsHistory) {
  InBrowser([&](const Browser& browser) {
    QuickSearchFor(browser, u"题名1"_s);
    EXPECT_EQ(Limit(browser), u"查询：题名 包含 题名1"_s);
    browser.ClickColumn(0);
    EXPECT_EQ(TextIn(browser.Window(), u"CboValue"_s), u"题名1"_s) << "still in force";
    Click(LiftKey(browser));
    EXPECT_EQ(TextIn(browser.Window(), u"CboValue"_s), QString());
    EXPECT_EQ(Find<QComboBox>(browser.Window(), u"CboValue"_s).count(), 2);
    Find<QComboBox>(browser.Window(), u"CboValue"_s).setEditText(u"还没查"_s);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(TextIn(browser.Window(), u"CboValue"_s), u"还没查"_s);
  });
}

TEST_P(FilterBarTest, AQueryWindowIsToldInWordsOrByItsCondition) {
  InBrowser([&](const Browser& browser) {
    LeaveQuery<frmSimFind>(u"frmSimFind"_s, u"Lwdj.Amaintitle Like '%题名%' And (Lwdj.RegID BETWEEN '1' And '2')"_s);
    browser.Entry(u"mnu_Tool5_LSearch"_s).trigger();
    EXPECT_EQ(Limit(browser), u"查询：题名 包含 题名 与 登记号 从 1 到 2"_s);
    LeaveQuery<frmSimFind>(u"frmSimFind"_s, u"RegID + 1 > 2"_s);
    browser.Entry(u"mnu_Tool5_LSearch"_s).trigger();
    EXPECT_EQ(Limit(browser), u"查询：简单查询 RegID + 1 > 2"_s);
    LeaveQuery<frmfhfind>(u"frmfhfind"_s, u"RegID + 1 > 3"_s, u"登记号 大于 2"_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(Limit(browser), u"查询：登记号 大于 2"_s);
    LeaveQuery<frmfhfind>(u"frmfhfind"_s, u"Lwdj.Amaintitle Not Like '%1%'  "_s, u"题名 不包含 1"_s);
    browser.Entry(u"mnu_Tool4_HSearch"_s).trigger();
    EXPECT_EQ(Limit(browser), u"查询：题名 不包含 1"_s);
  });
}

TEST_P(FilterBarTest, AConditionKeptFromTheLastTimeIsToldToo) {
  Remember(u"Lwdj,Amaintitle = '题名2'"_s);
  InBrowser([&](const Browser& browser) { EXPECT_EQ(Limit(browser), u"查询：题名 等于 题名2"_s); });
  Remember(u"Lwdj,Left(CreatedDate,4) = '2001'"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Limit(browser), u"年度：2001"_s);
    EXPECT_EQ(SelectedNode(browser), u"Lwdj"_s);
  });
  Remember(u"Lwdj,RegID * 2 = 4"_s);
  InBrowser([&](const Browser& browser) { EXPECT_EQ(Limit(browser), u"查询：RegID * 2 = 4"_s); });
}

TEST_P(FilterBarTest, TheRightsThatLimitTheListAreToldAndCannotBeLifted) {
  Shared().UserId = u"5"_s;
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Lwdj"_s, u"本处室文件"_s, u"1"_s, u"1"_s, u"1"_s, u"RegID > 1"_s});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Rights(browser), u"权限：本处室文件"_s);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(Limit(browser), QString());
    EXPECT_EQ(Rights(browser), u"权限：本处室文件"_s);
  });
}

TEST_P(FilterBarTest, LongWordsAreCutAndDoNotWidenTheWindow) {
  InBrowser([&](const Browser& browser) {
    const int least = browser.Window().minimumSizeHint().width();
    const QString words = QString(200, u'长');
    QuickSearchFor(browser, words);
    EXPECT_TRUE(Limit(browser).endsWith(u"…"_s));
    EXPECT_TRUE(LiftKey(browser).toolTip().contains(words));
    EXPECT_EQ(browser.Window().minimumSizeHint().width(), least);
  });
}

TEST_P(FilterBarTest, AClassHasNoLimits) {
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Rights(browser), QString()) << "the administrator sees everything";
    browser.Choose(u"C2\\"_s);
    EXPECT_EQ(Limit(browser), QString());
    EXPECT_EQ(TextIn(browser.Window(), u"FilterNote"_s), QString());
  });
}

}  // namespace folvane::test
