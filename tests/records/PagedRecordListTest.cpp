#include <gmock/gmock.h>

#include "records/DesignedDatabase.h"
#include "records/ListColumns.h"
#include "records/PagedRecordList.h"
#include "records/RecordStatement.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

/// A list of the table Lwdj in the order of its numbers, of which the row of record 1 is selected.
class PagedRecordListTest : public DesignTest {
 protected:
  void Open(int count) {
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    if (count > 0) design_->AddRecords(u"Lwdj"_s, count);
    BuildColumns(list_, u"Lwdj"_s);
    records_.Open(RecordStatement(u"Lwdj"_s, QString(), u"RegID Asc"_s), Shared().Connection);
    log_->Take();
    pages_.Refill();
    pages_.PositionOn(list_.KeyOf(0));
  }
  /// Goes there from the selected row and selects what it came to.
  void GoTo(int position) {
    if (const int row = pages_.GoTo(position, selected_); row > 0) selected_ = row;
    pages_.PositionOn(list_.KeyOf(selected_ - 1));
  }
  int Selected() const { return list_.Row(selected_ - 1).cells[0].toInt(); }
  int First() const { return list_.Row(0).cells[0].toInt(); }
  int Last() const { return list_.Row(list_.Count() - 1).cells[0].toInt(); }

  Recordset records_;
  RecordListModel list_;
  QList<int> progress_;
  std::vector<MessageRequest> told_;
  PagedRecordList pages_{records_, list_, [this](int done, int) { progress_ << done; },
                         [this](const MessageRequest& message) { told_.push_back(message); }};
  int selected_ = 1;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(PagedRecordListTest);

TEST_P(PagedRecordListTest, TheFirstPageHoldsThirtyRowsAndAsksOnceForEach) {
  Open(40);
  EXPECT_EQ(list_.Count(), 30);
  const QStringList statements = log_->Take();
  EXPECT_EQ(statements.size(), 30);
  EXPECT_EQ(statements.first(), u"Select * From Original_Text Where RecordID = '00000000000000000001'"_s);
  EXPECT_EQ(progress_.first(), 0);
  EXPECT_EQ(progress_.last(), -1);
  EXPECT_EQ(progress_.at(progress_.size() - 2), 30);
}

TEST_P(PagedRecordListTest, ARowHoldsItsColumnsAndTheKeyLast) {
  Open(1);
  EXPECT_EQ(list_.Row(0).cells, (QStringList{u"1"_s, u"题名1"_s, DesignedDatabase::Key(1)}));
  EXPECT_EQ(list_.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), u"ID"_s);
  EXPECT_EQ(list_.headerData(2, Qt::Horizontal, Qt::UserRole).toString(), u"ArchiveId"_s);
}

TEST_P(PagedRecordListTest, ANullLeavesTheCellEmpty) {
  Open(0);
  design_->AddRecords(u"Lwdj"_s, 1);
  design_->Run(u"update Lwdj set Amaintitle = null"_s);
  records_.Requery();
  pages_.Refill();
  EXPECT_EQ(list_.Row(0).cells[1], QString());
}

TEST_P(PagedRecordListTest, ARowWithOriginalsHasTheIconForIt) {
  design_->AddOriginal(DesignedDatabase::Key(2), u"9"_s, u"正文"_s, 1);
  Open(2);
  EXPECT_EQ(list_.Row(0).icon, 2);
  EXPECT_EQ(list_.Row(1).icon, 5);
}

TEST_P(PagedRecordListTest, ShortResultsFillOnce) {
  Open(7);
  EXPECT_EQ(list_.Count(), 7);
  EXPECT_EQ(log_->Take().size(), 7);
}

TEST_P(PagedRecordListTest, OneRowMoreThanAPageIsReachedByTheNextPage) {
  Open(31);
  GoTo(31);
  EXPECT_EQ(list_.Count(), 31);
  EXPECT_EQ(Selected(), 31);
}

TEST_P(PagedRecordListTest, ANearMoveGrowsTheList) {
  Open(100);
  GoTo(31);
  EXPECT_EQ(list_.Count(), 31);
  GoTo(61);
  EXPECT_EQ(list_.Count(), 61);
  EXPECT_EQ(First(), 1);
}

TEST_P(PagedRecordListTest, AMovePastTheEndLandsOnTheLastRow) {
  Open(40);
  GoTo(40);
  GoTo(70);
  EXPECT_EQ(Selected(), 40);
  EXPECT_EQ(list_.Count(), 40);
}

TEST_P(PagedRecordListTest, AFarMoveToTheEndFillsThePageFromBefore) {
  Open(100);
  GoTo(100);
  EXPECT_EQ(list_.Count(), 30);
  EXPECT_EQ(First(), 71);
  EXPECT_EQ(selected_, 30);
  EXPECT_EQ(Selected(), 100);
}

TEST_P(PagedRecordListTest, AFarMoveIntoTheMiddleStartsThePageThere) {
  Open(100);
  GoTo(65);
  EXPECT_EQ(First(), 65);
  EXPECT_EQ(Last(), 94);
  EXPECT_EQ(selected_, 1);
}

TEST_P(PagedRecordListTest, ANearMoveBackGrowsTheListAtItsTop) {
  Open(100);
  GoTo(65);
  GoTo(35);
  EXPECT_EQ(list_.Count(), 60);
  EXPECT_EQ(First(), 35);
  EXPECT_EQ(Selected(), 35);
  EXPECT_EQ(list_.Row(29).cells[0], u"64"_s) << "in order";
}

TEST_P(PagedRecordListTest, AFarMoveBackStartsTheListOver) {
  Open(100);
  GoTo(100);
  GoTo(1);
  EXPECT_EQ(list_.Count(), 30);
  EXPECT_EQ(First(), 1);
  EXPECT_EQ(Selected(), 1);
}

TEST_P(PagedRecordListTest, AColumnThatTheTableLacksIsToldOnceAndLeavesTheListEmpty) {
  design_->Insert(u"ListViewFormat"_s, u"TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo"_s,
                  {u"Lwdj"_s, u"NoSuchField"_s, u"没有"_s, u"900"_s, u"9"_s});
  Open(5);
  EXPECT_EQ(list_.Count(), 0);
  ASSERT_EQ(told_.size(), 1u);
  EXPECT_TRUE(told_[0].text.startsWith(u"将当前记录加载至列表时出现错误，原因是："_s));
  EXPECT_EQ(told_[0].flags, 16);
  EXPECT_EQ(told_[0].title, u"系统提示"_s);
}

TEST_P(PagedRecordListTest, ALostTableOfOriginalsKeepsTheRowsAddedSoFar) {
  Open(40);
  design_->Run(u"drop table Original_Text"_s);
  GoTo(31);
  EXPECT_EQ(list_.Count(), 30);
  EXPECT_EQ(told_.size(), 1u);
}

TEST_P(PagedRecordListTest, ATableWithoutColumnsShowsOnlyTheHiddenOne) {
  BuildColumns(list_, u"Fwdj"_s);
  EXPECT_EQ(list_.Columns().size(), 1u);
  EXPECT_THAT(log_->Take(), ElementsAre(u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where "
                                        "Tablename='Fwdj' Order By OrderNo"_s));
}

TEST(RowIconTest, SeventhColumnAndOriginalsGiveTheIcon) {
  EXPECT_EQ(IconOfRow(u"  "_s, false), 2);
  EXPECT_EQ(IconOfRow(u"a"_s, false), 1);
  EXPECT_EQ(IconOfRow(QString(), true), 5);
  EXPECT_EQ(IconOfRow(u"a"_s, true), 4);
}

}  // namespace folvane::test
