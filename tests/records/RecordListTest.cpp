#include <QHeaderView>
#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "records/DesignedDatabase.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "shell/SharedState.h"
#include "support/WindowDriver.h"
#include "widgets/RecordListView.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

/// A list of Lwdj in ascending order, over a record set of its own.
class RecordListTest : public DesignTest {
 protected:
  void Open(int count) {
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    if (count > 0) design_->AddRecords(u"Lwdj"_s, count);
    design_->Insert(u"FindCirOrder"_s, u"TableName,OrderStr,UserID"_s, {u"Lwdj"_s, u"RegID Asc"_s, u"1"_s});
    parameters_.Select(parameters_.Add(u"Lwdj"_s));
    parameters_.Set(1, Parameter::Order, u"RegID Asc"_s);
    view_.resize(600, 400);
    view_.show();
    list_.ShowColumns(u"Lwdj"_s);
    list_.ShowFromStart();
    log_->Take();
  }
  QString StoredOrder() { return design_->Value(u"select OrderStr from FindCirOrder"_s); }
  QString Caption(int column) const { return list_.Rows().Columns().at(size_t(column)).caption; }
  /// The first column of the current row, and that of all.
  QString Cell() const { return view_.currentIndex().siblingAtColumn(0).data().toString(); }
  QStringList Cells(int column = 0) const {
    QStringList cells;
    for (int row = 0; row < list_.Rows().Count(); ++row) cells << list_.Rows().Row(row).cells[column];
    return cells;
  }
  void Choose(int row) { view_.setCurrentIndex(list_.Rows().index(row - 1, 0)); }
  bool Tick(int row, bool on = true) {
    return view_.model()->setData(list_.Rows().index(row - 1, 0), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
  }

  RecordListView view_;
  Recordset records_;
  TableParameters parameters_;
  QStringList news_;
  RecordList list_{view_,
                   records_,
                   parameters_,
                   {[this] { news_ << u"opening"_s; }, [this] { news_ << u"chosen"_s; },
                    [this] { news_ << u"entered"_s; }, [](int, int) {}, [](const MessageRequest&) {}}};
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(RecordListTest);

TEST_P(RecordListTest, OpensItsRecordsByRightsConditionAndOrder) {
  Open(5);
  parameters_.Set(1, Parameter::RowLimit, u"(RegID > 1)"_s);
  list_.ShowWhere(u"RegID < 5 Or RegID = 5"_s);
  EXPECT_EQ(log_->Take().first(),
            u"Select * From Lwdj Where (RegID > 1) And (RegID < 5 Or RegID = 5) Order By RegID Asc"_s);
  EXPECT_EQ(Cells(), (QStringList{u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
  EXPECT_EQ(list_.ShownFilter(), u"RegID < 5 Or RegID = 5"_s);
  EXPECT_EQ(list_.RecordCount(), 4);
  EXPECT_FALSE(Shared().CurrentRecords.IsOpen()) << "the record set is its own";
}

TEST_P(RecordListTest, TellsThatItOpensAndThatARowIsChosen) {
  Open(2);
  EXPECT_EQ(news_, (QStringList{u"opening"_s, u"chosen"_s}));
  Choose(2);
  Press(view_, Qt::Key_Return);
  EXPECT_EQ(news_.mid(2), (QStringList{u"chosen"_s, u"entered"_s}));
  EXPECT_EQ(records_.AbsolutePosition(), 2);
}

TEST_P(RecordListTest, ARefusedConditionLeavesNoRecordsAndTheOneBeforeInForce) {
  Open(3);
  list_.ShowWhere(u"RegID < 3"_s);
  news_.clear();
  EXPECT_THROW(list_.ShowWhere(u"NoSuchField = 1"_s), DataError);
  EXPECT_EQ(news_, (QStringList{u"opening"_s, u"chosen"_s})) << "there is no row";
  EXPECT_EQ(list_.State(), ListRecords::Refused);
  EXPECT_EQ(Cells(), QStringList());
  EXPECT_EQ(list_.ShownFilter(), u"NoSuchField = 1"_s);
  EXPECT_EQ(list_.TakenFilter(), u"RegID < 3"_s);
}

TEST_P(RecordListTest, AConditionRefusedFromTheStartIsNotTaken) {
  Open(3);
  parameters_.Select(parameters_.Add(u"Lwdj"_s));
  parameters_.Set(2, Parameter::Order, u"RegID Asc"_s);
  EXPECT_THROW(list_.ShowWhere(u"NoSuchField = 1"_s), DataError);
  EXPECT_EQ(list_.TakenFilter(), QString());
  list_.ShowWhere(u"RegID = 1"_s);
  EXPECT_EQ(list_.State(), ListRecords::Opened);
  EXPECT_EQ(list_.TakenFilter(), u"RegID = 1"_s);
}

TEST_P(RecordListTest, ARefusedOrderLeavesEverythingAsItIs) {
  Open(3);
  Choose(2);
  EXPECT_THROW(list_.ShowInOrder(u"NoSuchField Asc"_s), DataError);
  EXPECT_EQ(Cells(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
  EXPECT_EQ(records_.AbsolutePosition(), 2);
  EXPECT_EQ(parameters_.Selected(Parameter::Order), u"RegID Asc"_s);
}

TEST_P(RecordListTest, OnlyOneRowIsSelectedAfterAMove) {
  Open(40);
  list_.NextPage();
  EXPECT_EQ(list_.SelectedKeys(), QStringList{DesignedDatabase::Key(31)});
  EXPECT_EQ(list_.SelectedKey(), DesignedDatabase::Key(31));
}

TEST_P(RecordListTest, TheKeysOfAllSelectedRowsComeFromTheTop) {
  Open(5);
  Choose(4);
  view_.selectionModel()->select(list_.Rows().index(1, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  EXPECT_EQ(list_.SelectedKeys(), (QStringList{DesignedDatabase::Key(2), DesignedDatabase::Key(4)}));
}

TEST_P(RecordListTest, TheKeysGoOnAtTheEndsOfTheList) {
  Open(100);
  Choose(30);
  Press(view_, Qt::Key_Down);
  EXPECT_EQ(Cell(), u"31"_s);
  EXPECT_EQ(list_.Rows().Count(), 31);
  Press(view_, Qt::Key_PageDown);
  EXPECT_EQ(Cell(), u"61"_s);
  list_.LastRecord();
  Choose(1);
  EXPECT_EQ(Cell(), u"71"_s);
  Press(view_, Qt::Key_Up);
  EXPECT_EQ(Cell(), u"70"_s);
  Press(view_, Qt::Key_PageUp);
  EXPECT_EQ(Cell(), u"40"_s);
  EXPECT_EQ(view_.CurrentRow(), 1);
}

TEST_P(RecordListTest, DownOnTheLastRecordAndUpOnTheFirstStayThere) {
  Open(3);
  Press(view_, Qt::Key_Up);
  EXPECT_EQ(Cell(), u"1"_s);
  Press(view_, Qt::Key_PageDown);
  Press(view_, Qt::Key_Down);
  EXPECT_EQ(Cell(), u"3"_s);
  EXPECT_EQ(list_.Rows().Count(), 3);
}

TEST_P(RecordListTest, AColumnClickSortsAndStoresTheOrder) {
  Open(3);
  list_.SortByColumn(1);
  EXPECT_EQ(Caption(1), u"↑题名"_s);
  EXPECT_EQ(parameters_.Selected(Parameter::Order), u"Amaintitle Asc"_s);
  const QStringList statements = log_->Take();
  EXPECT_EQ(statements.first(), u"Select * From Lwdj Order By Amaintitle Asc"_s);
  EXPECT_THAT(
      statements.mid(statements.size() - 2),
      ElementsAre(u"Select * From FindCirOrder Where TableName = 'Lwdj' and UserID=1"_s,
                  u"Update FindCirOrder Set OrderStr = 'Amaintitle Asc' Where TableName = 'Lwdj' and UserID=1"_s));
}

TEST_P(RecordListTest, AColumnClickSortsASingleRecordTooAndAnEmptyListNot) {
  Open(1);
  list_.SortByColumn(1);
  EXPECT_EQ(StoredOrder(), u"Amaintitle Asc"_s);
  design_->Run(u"delete from Lwdj"_s);
  list_.ShowFromStart();
  log_->Take();
  list_.SortByColumn(0);
  EXPECT_EQ(log_->Take(), QStringList());
  EXPECT_EQ(StoredOrder(), u"Amaintitle Asc"_s);
}

TEST_P(RecordListTest, AHostMayHaveAColumnOfChineseSortedByPinyin) {
  if (DatabaseSession::Of(*Connected()).NativeDriver().PinyinCollation().isEmpty())
    GTEST_SKIP() << "no collation by pinyin here";
  Open(2);
  design_->Run(u"update Lwdj set Amaintitle = case RegID when 1 then '啊' else '中' end"_s);
  list_.SortByColumn(1);
  EXPECT_EQ(Cells(1), (QStringList{u"中"_s, u"啊"_s})) << "by their codes";
  Services().sortByPinyin = true;
  list_.SortByColumn(0);
  list_.SortByColumn(1);
  EXPECT_EQ(Cells(1), (QStringList{u"啊"_s, u"中"_s}));
}

TEST_P(RecordListTest, TheSameColumnTurnsRoundAndAThirdClickRepeatsIt) {
  Open(3);
  list_.SortByColumn(0);
  EXPECT_EQ(StoredOrder(), u"RegID Asc"_s);
  list_.SortByColumn(0);
  EXPECT_EQ(Caption(0), u"↓登记号"_s);
  list_.SortByColumn(0);
  EXPECT_EQ(StoredOrder(), u"RegID Desc"_s);
  EXPECT_EQ(Cells(), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
}

TEST_P(RecordListTest, AnOrderOfSeveralFieldsTakesTheArrow) {
  Open(3);
  list_.SortByColumn(1);
  Choose(2);
  list_.ShowInOrder(u"RegID Desc,Amaintitle Asc"_s);
  EXPECT_EQ(Cells(), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
  EXPECT_EQ(Cell(), u"2"_s);
  EXPECT_EQ(Caption(1), u"题名"_s);
}

TEST_P(RecordListTest, SortingKeepsTheSelectedRecordAndFillsThePageBeforeIt) {
  Open(40);
  Choose(2);
  list_.SortByColumn(0);
  list_.SortByColumn(0);
  EXPECT_EQ(Cell(), u"2"_s);
  EXPECT_EQ(list_.Rows().Count(), 30);
  EXPECT_EQ(view_.CurrentRow(), 29);
  EXPECT_TRUE(view_.viewport()->rect().intersects(view_.visualRect(view_.currentIndex())));
  EXPECT_EQ(records_.AbsolutePosition(), 39) << "the cursor is on the selected record";
}

TEST_P(RecordListTest, ASelectedRecordDeletedByAnotherUserLetsTheListStartAtItsFirst) {
  Open(5);
  Choose(2);
  design_->Run(u"delete from Lwdj where RegID = 2"_s);
  list_.SortByColumn(1);
  EXPECT_EQ(Cell(), u"1"_s);
  EXPECT_EQ(list_.RecordCount(), 4);
}

TEST_P(RecordListTest, ReadAgainItShowsTheRecordOfAKey) {
  Open(5);
  design_->Run(u"delete from Lwdj where RegID = 1"_s);
  list_.Reload(DesignedDatabase::Key(4));
  EXPECT_EQ(Cell(), u"4"_s);
  EXPECT_EQ(Cells(), (QStringList{u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
}

TEST_P(RecordListTest, AWidthThatTheUserGaveBelongsToTheTable) {
  Open(1);
  view_.header()->resizeSection(0, 77);
  list_.Clear();
  EXPECT_EQ(list_.Table(), QString());
  list_.ShowColumns(u"Lwdj"_s);
  EXPECT_EQ((QList<int>{view_.columnWidth(0), view_.columnWidth(1), view_.columnWidth(2)}), (QList<int>{77, 100, 1}));
}

TEST_P(RecordListTest, RowsCanBeTickedOnlyWhereTheListIsTickable) {
  Open(3);
  EXPECT_FALSE(Tick(1));
  EXPECT_FALSE(list_.Rows().index(0, 0).data(Qt::CheckStateRole).isValid());
  list_.SetTickable(true);
  EXPECT_EQ(list_.Rows().index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
  EXPECT_FALSE(list_.Rows().index(0, 1).data(Qt::CheckStateRole).isValid()) << "a box for each row";
}

TEST_P(RecordListTest, TheKeysOfTickedRowsComeInTheOrderOfTheTicks) {
  Open(3);
  list_.SetTickable(true);
  for (const int row : {3, 1, 2}) EXPECT_TRUE(Tick(row));
  Tick(1, false);
  EXPECT_EQ(list_.Rows().Ticked(), (QStringList{DesignedDatabase::Key(3), DesignedDatabase::Key(2)}));
  EXPECT_EQ(list_.Rows().index(2, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_P(RecordListTest, ATickOutlastsAMoveAndNoReading) {
  Open(100);
  list_.SetTickable(true);
  Choose(1);
  Tick(2);
  list_.LastRecord();
  EXPECT_EQ(Cells().first(), u"71"_s) << "its row is gone for now";
  list_.FirstRecord();
  EXPECT_EQ(list_.Rows().index(1, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
  list_.SortByColumn(0);
  EXPECT_EQ(list_.Rows().Ticked(), QStringList());
}

}  // namespace folvane::test
