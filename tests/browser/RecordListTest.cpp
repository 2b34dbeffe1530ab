#include <QHeaderView>
#include <gmock/gmock.h>

#include "browser/BrowserTest.h"
#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;

namespace {

/// A list of Lwdj in ascending order, of as many records as a case asks for.
class RecordListTest : public BrowserTest {
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

FOLVANE_ON_EACH_DATABASE(RecordListTest);

TEST_P(RecordListTest, ChoosingARowMovesTheCursorAndShowsItsOriginals) {
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

TEST_P(RecordListTest, TheMovesOfTheFirstRowTheLastAndOneBetween) {
  WithRecords(3, [&](const Browser& browser) {
    EXPECT_EQ(MovesOn(browser), (QStringList{u"NPage"_s, u"LPage"_s, u"NextPage"_s}));
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(MovesOn(browser),
              (QStringList{u"FPage"_s, u"PPage"_s, u"NPage"_s, u"LPage"_s, u"PrePage"_s, u"NextPage"_s}));
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(MovesOn(browser), (QStringList{u"FPage"_s, u"PPage"_s, u"PrePage"_s}));
  });
}

TEST_P(RecordListTest, OneRecordHasNowhereToGo) {
  WithRecords(1, [&](const Browser& browser) {
    EXPECT_EQ(MovesOn(browser), QStringList());
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共1条"_s);
  });
}

TEST_P(RecordListTest, AnEmptyTableSaysSo) {
  WithRecords(0, [&](const Browser& browser) {
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
    EXPECT_EQ(MovesOn(browser), QStringList());
  });
}

TEST_P(RecordListTest, NextPageFromTheFirstOfThirtyOneLandsOnTheLast) {
  WithRecords(31, [&](const Browser& browser) {
    browser.Key(u"NextPage"_s).trigger();
    EXPECT_EQ(browser.List().model()->rowCount(), 31);
    EXPECT_EQ(browser.Cell(), u"31"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第31条/共31条"_s);
    EXPECT_FALSE(browser.KeyOn(u"NextPage"_s));
  });
}

TEST_P(RecordListTest, LastAndFirstRecordAreFarMoves) {
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

TEST_P(RecordListTest, OnlyOneRowIsSelectedAfterAMove) {
  WithRecords(40, [&](const Browser& browser) {
    browser.Key(u"NextPage"_s).trigger();
    EXPECT_EQ(browser.List().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(browser.List().selectionModel()->selectedRows().first().row(), 30);
  });
}

TEST_P(RecordListTest, TheKeysGoOnAtTheEndsOfTheList) {
  WithRecords(100, [&](const Browser& browser) {
    browser.List().setCurrentIndex(browser.List().model()->index(29, 0));
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(browser.Cell(), u"31"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 31);
    browser.PressInList(Qt::Key_PageDown);
    EXPECT_EQ(browser.Cell(), u"61"_s);
    browser.Entry(u"mnu_Goto6_LPage"_s).trigger();
    browser.List().setCurrentIndex(browser.List().model()->index(0, 0));
    EXPECT_EQ(browser.Cell(), u"71"_s);
    browser.PressInList(Qt::Key_Up);
    EXPECT_EQ(browser.Cell(), u"70"_s);
    browser.PressInList(Qt::Key_PageUp);
    EXPECT_EQ(browser.Cell(), u"40"_s);
    EXPECT_EQ(browser.Row(), 1);
  });
}

TEST_P(RecordListTest, DownOnTheLastRecordAndUpOnTheFirstStayThere) {
  WithRecords(3, [&](const Browser& browser) {
    browser.PressInList(Qt::Key_Up);
    EXPECT_EQ(browser.Cell(), u"1"_s);
    browser.PressInList(Qt::Key_PageDown);
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(browser.Cell(), u"3"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 3);
  });
}

TEST_P(RecordListTest, AColumnClickSortsAndStoresTheOrder) {
  WithRecords(3, [&](const Browser& browser) {
    log_->Take();
    browser.ClickColumn(1);
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"↑题名"_s, u"ID"_s}));
    EXPECT_EQ(StoredOrder(), u"Amaintitle Asc"_s);
    EXPECT_EQ(browser.Parameter(u"Lwdj"_s, 3), u"Amaintitle Asc"_s);
    const QStringList statements = log_->Take();
    EXPECT_EQ(statements.first(), u"Select * From Lwdj Order By Amaintitle Asc"_s);
    EXPECT_THAT(statements.mid(statements.size() - 2),
                ElementsAre(u"Select * From FindCirOrder Where TableName = 'Lwdj' and UserID=1"_s,
                            u"Update FindCirOrder Set OrderStr = 'Amaintitle Asc' Where TableName = 'Lwdj' and "
                            "UserID=1"_s));
  });
}

TEST_P(RecordListTest, AHostMayHaveAColumnOfChineseSortedByPinyin) {
  if (DatabaseSession::Of(*Connected()).NativeDriver().PinyinCollation().isEmpty())
    GTEST_SKIP() << "no collation by pinyin here";
  WithRecords(2, [&](const Browser& browser) {
    design_->Run(u"update Lwdj set Amaintitle = case RegID when 1 then '啊' else '中' end"_s);
    browser.ClickColumn(1);
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), (QStringList{u"中"_s, u"啊"_s})) << "by their codes";
    Services().sortByPinyin = true;
    browser.ClickColumn(0);
    browser.ClickColumn(1);
    EXPECT_EQ(browser.Column(u"LVData"_s, 1), (QStringList{u"啊"_s, u"中"_s}));
  });
}

TEST_P(RecordListTest, TheSameColumnTurnsRoundAndAThirdClickRepeatsIt) {
  WithRecords(3, [&](const Browser& browser) {
    browser.ClickColumn(0);
    EXPECT_EQ(StoredOrder(), u"RegID Asc"_s);
    browser.ClickColumn(0);
    EXPECT_EQ(browser.Captions().first(), u"↓登记号"_s);
    browser.ClickColumn(0);
    EXPECT_EQ(StoredOrder(), u"RegID Desc"_s);
    EXPECT_EQ(browser.Column(u"LVData"_s), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
  });
}

TEST_P(RecordListTest, AClickOnTheHiddenColumnSortsByTheKey) {
  WithRecords(2, [&](const Browser& browser) {
    Q_EMIT browser.List().header()->sectionClicked(2);
    EXPECT_EQ(StoredOrder(), u"ArchiveId Asc"_s);
    EXPECT_EQ(browser.Captions().last(), u"↑ID"_s);
  });
}

TEST_P(RecordListTest, SortingKeepsTheSelectedRecordAndFillsThePageBeforeIt) {
  WithRecords(40, [&](const Browser& browser) {
    browser.PressInList(Qt::Key_Down);
    EXPECT_EQ(browser.Cell(), u"2"_s);
    browser.ClickColumn(0);
    browser.ClickColumn(0);
    EXPECT_EQ(browser.Cell(), u"2"_s);
    EXPECT_EQ(browser.List().model()->rowCount(), 30);
    EXPECT_EQ(browser.Row(), 29);
    EXPECT_TRUE(browser.List().viewport()->rect().intersects(browser.List().visualRect(browser.List().currentIndex())));
    EXPECT_EQ(Shared().CurrentRecords.AbsolutePosition(), 39) << "the cursor is on the selected record";
    EXPECT_EQ(browser.Status(), u"当前记录：第39条/共40条"_s);
  });
}

TEST_P(RecordListTest, ASelectedRecordDeletedByAnotherUserLetsTheListStartAtItsFirst) {
  WithRecords(5, [&](const Browser& browser) {
    browser.PressInList(Qt::Key_Down);
    design_->Run(u"delete from Lwdj where RegID = 2"_s);
    browser.ClickColumn(1);
    EXPECT_EQ(browser.Cell(), u"1"_s);
    EXPECT_EQ(browser.Status(), u"当前记录：第1条/共4条"_s);
  });
}

TEST_P(RecordListTest, AColumnThatTheTableLacksGivesOneMessageAndAnEmptyList) {
  MessageBoxes messages;
  design_->Insert(u"ListViewFormat"_s, u"TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo"_s,
                  {u"Lwdj"_s, u"NoSuchField"_s, u"没有"_s, u"900"_s, u"9"_s});
  WithRecords(5, [&](const Browser& browser) {
    EXPECT_EQ(messages.Requests().size(), 1u);
    EXPECT_EQ(browser.Column(u"LVData"_s), QStringList());
    EXPECT_EQ(browser.Status(), u"当前无记录"_s);
  });
}

TEST_P(RecordListTest, AColumnClickThatTheDatabaseRefusesLeavesTheListAndTheStatusLineTells) {
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

TEST_P(RecordListTest, AnOrderThatCouldNotBeKeptIsTold) {
  MessageBoxes messages;
  WithRecords(3, [&](const Browser& browser) {
    design_->Run(u"alter table FindCirOrder rename to Away"_s);
    browser.ClickColumn(1);
    design_->Run(u"alter table Away rename to FindCirOrder"_s);
    EXPECT_TRUE(browser.Notice().startsWith(u"未能完成："_s));
    EXPECT_EQ(browser.Captions(), (QStringList{u"登记号"_s, u"↑题名"_s, u"ID"_s})) << "sorted it is";
  });
}

TEST_P(RecordListTest, AWidthThatTheUserGaveComesBack) {
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
