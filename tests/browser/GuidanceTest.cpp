#include <QLabel>
#include <QMenu>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the browser tells a user who has nothing before him, and how he finds its commands.
class GuidanceTest : public BrowserTest {};

QString Hint(const Browser& browser, const QString& name = u"ListHint"_s) {
  const QLabel& hint = Find<QLabel>(browser.Window(), name);
  return hint.isVisible() ? hint.text() : QString();
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(GuidanceTest);

TEST_P(GuidanceTest, AnEmptyTableOffersToAdd) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"表“来文登记”中还没有记录。按 Ctrl+N 新增。"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 0) << "no row of the list";
    design_->AddRecords(u"Lwdj"_s, 1);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(Hint(browser), QString());
    EXPECT_EQ(Hint(browser, u"FileHint"_s), u"此文件没有原文。"_s);
  });
}

TEST_P(GuidanceTest, AnEmptyYearOffersAllRecords) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"当前条件下没有记录。按 F5 刷新以显示全部，或按 Ctrl+N 新增。"_s);
  });
}

TEST_P(GuidanceTest, WhoeverMayNotAddIsNotToldTo) {
  Shared().UserId = u"5"_s;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2, true);
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Fwdj"_s, u"浏览"_s, u"0"_s, u"1"_s, u"1"_s, u"RegID > 1"_s});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"您没有查看表“来文登记”的权限，请与管理员联系。"_s);
    browser.Choose(u"Fwdj"_s);
    EXPECT_EQ(Hint(browser), u"当前条件下没有记录。按 F5 刷新以显示全部。"_s);
    browser.Key(u"Refresh"_s).trigger();
    EXPECT_EQ(Hint(browser), u"没有您有权查看的记录。"_s);
  });
}

TEST_P(GuidanceTest, ATableWithoutListColumnsSaysWhereTheyBelong) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 2);
  design_->Run(u"delete from ListViewFormat"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"表“来文登记”没有列表列：请在 ListViewFormat 中为表 Lwdj 登记要显示的列。"_s);
  });
}

TEST_P(GuidanceTest, AColumnThatTheTableLacksIsNamed) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 2);
  design_->Insert(u"ListViewFormat"_s, u"TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo"_s,
                  {u"Lwdj"_s, u"NoSuchField"_s, u"没有"_s, u"900"_s, u"9"_s});
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"表“来文登记”没有列表列“没有”的字段 NoSuchField：请在 ListViewFormat 中改正。"_s);
    EXPECT_FALSE(messages.Last().details.isEmpty());
  });
}

TEST_P(GuidanceTest, ATableWithoutItsKeyIsNamed) {
  MessageBoxes messages;
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->Run(u"drop table Lwdj"_s);
  design_->Run(u"create table Lwdj (RegID integer, Amaintitle varchar(200))"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser), u"表“来文登记”没有主键列 ArchiveID，其记录不能显示：请先为表 Lwdj 建立该列。"_s);
  });
}

TEST_P(GuidanceTest, AClassTellsToChooseATableOrThatItHasNone) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddClass(3, u"科技"_s);
  InBrowser([&](const Browser& browser) {
    browser.Choose(u"C2\\"_s);
    EXPECT_EQ(Hint(browser), u"请在左边的类目树中选择一个表。"_s);
    browser.Choose(u"C3\\"_s);
    EXPECT_EQ(Hint(browser), u"类目“科技”下没有表：请在 Design_TableRelation 中为它登记表。"_s);
    EXPECT_EQ(Hint(browser, u"TreeHint"_s), QString());
  });
}

TEST_P(GuidanceTest, ATreeWithoutClassesSaysWhereTheyBelong) {
  design_->Run(u"delete from Design_ClassRelation"_s);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(Hint(browser, u"TreeHint"_s), u"还没有类目：请在 Design_ClassRelation 中登记类目。"_s);
    EXPECT_EQ(Hint(browser), u"请在左边的类目树中选择一个表。"_s);
  });
}

TEST_P(GuidanceTest, EveryCommandHasAShortcutOfItsOwn) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  InBrowser([&](const Browser& browser) {
    QStringList taken;
    for (const QMenu* menu : browser.Window().findChildren<QMenu*>()) {
      const bool offersCommands = menu->objectName() != u"mnu_Pop"_s && menu->objectName() != u"mnu_ArchiveKey"_s &&
                                  menu->objectName() != u"mnu_Report"_s;
      for (const QAction* entry : menu->actions()) {
        if (!offersCommands || entry->isSeparator() || entry->menu()) continue;
        EXPECT_FALSE(entry->shortcut().isEmpty()) << entry->objectName().toStdString();
        taken << entry->shortcut().toString();
      }
    }
    taken << browser.Key(u"Refresh"_s).shortcut().toString();
    EXPECT_EQ(taken.size(), QSet<QString>(taken.begin(), taken.end()).size());
    EXPECT_GT(taken.size(), 20);
  });
}

TEST_P(GuidanceTest, EveryControlHasANameAndTheWindowItsIcon) {
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2, true);
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(UnnamedControls(browser.Window()), QStringList());
    EXPECT_FALSE(browser.Window().windowIcon().isNull());
  });
}

}  // namespace folvane::test
