#include <QHeaderView>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

/// A list of Lwdj in ascending order, of as many records as a case asks for.
class BrowserListTest : public BrowserTest {
 protected:
  void WithRecords(int count, const std::function<void(const Browser&)>& steps) {
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    if (count > 0) design_->AddRecords(u"Lwdj"_s, count);
    design_->Insert(u"FindCirOrder"_s, u"TableName,OrderStr,UserID"_s, {u"Lwdj"_s, u"RegID Asc"_s, u"1"_s});
    InBrowser(steps);
  }
  QString StoredOrder() { return design_->Value(u"select OrderStr from FindCirOrder"_s); }
};

QStringList MovesOn(const Browser& browser) {
  QStringList on;
  for (const QString& entry :
       {u"mnu_Goto5_FPage"_s, u"mnu_Goto2_PPage"_s, u"mnu_Goto3_NPage"_s, u"mnu_Goto6_LPage"_s}) {
    if (browser.On(entry)) on << entry.section(u'_', -1);
  }
  for (const QString& key : {u"PrePage"_s, u"NextPage"_s}) {
    if (browser.KeyOn(key)) on << key;
  }
  return on;
}

}  // namespace

FOLVANE_ON_EACH_DATABASE(BrowserListTest);

TEST_P(BrowserListTest, ChoosingARowMovesTheCursorAndShowsItsOriginals) {
  design_->AddOriginal(DesignedDatabase::Key(2), u"91"_s, u"附件"_s, 2);
  design_->AddOriginal(DesignedDatabase::Key(2), u"90"_s, u"正文"_s, 1);
  WithRecords(3, [&](const Browser& browser) {
    log_->Take();
    ClickItem(browser.List(), browser.List().model()->index(1, 0));
    EXPECT_EQ(Shared().CurrentRecords.AbsolutePosition(), 2);
    EXPECT_EQ(browser.Status(), u"当前记录：第2条/共3条"_s);
    EXPECT_EQ(browser.Column(u"LVFile"_s, 0), (QStringList{u"正文"_s, u"附件"_s}));
    EXPECT_EQ(browser.Column(u"LVFile"_s, 1), (QStringList{u".tif"_s, u".tif"_s}));
    EXPECT_EQ(browser.Column(u"LVFile"_s, 2), (QStringList{u"1024"_s, u"1024"_s}));
    const QModelIndex original = browser.View(u"LVFile"_s).model()->index(0, 0);
    EXPECT_EQ(original.data(Qt::UserRole + 1).toInt(), 3);
    EXPECT_EQ(original.data(Qt::UserRole + 2).toString(), u"90"_s);
    EXPECT_THAT(log_->Take(),
                ElementsAre(u"Select * from Original_Text Where RecordId='00000000000000000002'  Order By "
                            "FileOrder"_s));
    EXPECT_EQ(browser.List().model()->index(1, 0).data(Qt::UserRole + 1).toInt(), 5);
  });
}

TEST_P(BrowserListTest, TheMovesOfTheFirstRowTheLastAndOneBetween) {
  WithRecords(3, [&](const Browser& browser) {
    EXPECT_EQ(MovesOn(browser), (QStringList{u"NPage"_s, u"LPage"_s, u"NextPage"_s}));
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(MovesOn(browser),
              (QStringList{u"FPage"_s, u"PPage"_s, u"NPage"_s, u"LPage"_s, u"PrePage"_s, u"NextPage"_s}));
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(MovesOn(browser), (QStringList{u"FPage"_s, u"PPage"_s, u"PrePage"_s}));
  });
}

TEST_P(BrowserListTest, OneRecordHasNowhereToGo) {
  WithRecords(1, [&](const Browser& browser) {
    EXPECT_EQ(MovesOn(browser), QStringList());
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共1条"_s);
  });
}

TEST_P(BrowserListTest, AnEmptyTableSaysSo) {
  WithRecords(0, [&](const Browser& browser) {
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_EQ(MovesOn(browser), QStringList());
  });
}

TEST_P(BrowserListTest, NextPageFromTheFirstOfThirtyOneLandsOnTheLast) {
  WithRecords(31, [&](const Browser& browser) {
    browser.Key(u"NextPage"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 31);
    EXPECT_EQ(browser.Cell(), u"31"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第31条/共31条"_s);
    EXPECT_FALSE(browser.KeyOn(u"NextPage"_s));
  });
}

TEST_P(BrowserListTest, LastAndFirstRecordAreFarMoves) {
  WithRecords(100, [&](const Browser& browser) {
    browser.Entry(u"mnu_Goto6_LPage"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"100"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s).first(), u"71"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第100条/共100条"_s);
    browser.Key(u"PrePage"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"70"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 31);
    browser.Entry(u"mnu_Goto5_FPage"_s).trigger();
    EXPECT_EQ(browser.Cell(), u"1"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 30);
  });
}

TEST_P(BrowserListTest, AColumnThatTheTableLacksGivesOneMessageAndAnEmptyList) {
  MessageBoxes messages;
  design_->Insert(u"ListViewFormat"_s, u"TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo"_s,
                  {u"Lwdj"_s, u"NoSuchField"_s, u"没有"_s, u"900"_s, u"9"_s});
  WithRecords(5, [&](const Browser& browser) {
    ASSERT_EQ(messages.Requests().size(), 1u);
    EXPECT_TRUE(messages.Last().text.startsWith(u"将当前记录加载至列表时出现错误，原因是："_s));
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList());
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
  });
}

TEST_P(BrowserListTest, AColumnClickThatTheDatabaseRefusesLeavesTheListAndTheStatusLineTells) {
  MessageBoxes messages;
  WithRecords(3, [&](const Browser& browser) {
    browser.PressInList(Qt::Key_Down);
    design_->Run(u"alter table Lwdj rename column Amaintitle to Title"_s);
    browser.ClickColumn(1);
    EXPECT_TRUE(messages.Requests().empty());
    EXPECT_TRUE(browser.Notice().startsWith(u"未能完成："_s));
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"题名"_s, u"ID"_s}));
    EXPECT_EQ(browser.Status(), u"当前记录：第2条/共3条"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"RegID Asc"_s);
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(browser.Status(), u"当前记录：第3条/共3条"_s) << "the records are those from before";
  });
  EXPECT_EQ(StoredOrder(), u"RegID Asc"_s);
}

TEST_P(BrowserListTest, AnOrderThatCouldNotBeKeptIsTold) {
  MessageBoxes messages;
  WithRecords(3, [&](const Browser& browser) {
    design_->Run(u"alter table FindCirOrder rename to Away"_s);
    browser.ClickColumn(1);
    design_->Run(u"alter table Away rename to FindCirOrder"_s);
    EXPECT_TRUE(browser.Notice().startsWith(u"未能完成："_s));
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"↑题名"_s, u"ID"_s})) << "sorted it is";
  });
}

TEST_P(BrowserListTest, AWidthThatTheUserGaveComesBack) {
  WithRecords(1, [&](const Browser& browser) {
    EXPECT_EQ(browser.List().columnWidth(0), 100);
    browser.List().header()->resizeSection(0, 77);
  });
  InBrowser([&](const Browser& browser) {
    EXPECT_EQ(browser.List().columnWidth(0), 77);
    EXPECT_EQ(browser.List().columnWidth(1), 100);
    EXPECT_EQ(browser.List().columnWidth(2), 1);
  });
}

}  // namespace folvane::test
