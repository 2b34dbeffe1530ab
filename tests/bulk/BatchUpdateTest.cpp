#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "bulk/BatchUpdate.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using Direction = BatchWalk::Direction;

/// A table Lwdj with a title, a number and a unit, whose records stand in the shared record set.
class BatchUpdateTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddTable(u"Lwdj"_s, u"来文登记"_s, 2,
                      {{u"RegID"_s, u"登记号"_s, u"数值型"_s},
                       {u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                       {u"Unit"_s, u"单位"_s, u"文本型"_s}});
  }

  /// Adds a record per title; its key and number count from 1.
  Recordset& WithTitles(const QStringList& titles) {
    for (int at = 0; at < titles.size(); ++at) {
      design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s,
                      {DesignedDatabase::Key(at + 1), QString::number(at + 1), titles[at]});
    }
    Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
    log_->Take();
    return Shared().CurrentRecords;
  }
  QStringList Titles() { return Column(u"Amaintitle"_s); }
  QStringList Column(const QString& column) {
    QStringList texts;
    for (const QStringList& row : Database().Rows(u"select "_s + column + u" from Lwdj order by ArchiveID"_s))
      texts << row.front();
    return texts;
  }
  QStringList TitlesHeld() {
    Recordset& records = Shared().CurrentRecords;
    QStringList texts;
    for (records.MoveFirst(); !records.EOF_(); records.MoveNext()) texts << records[u"Amaintitle"_s].Text();
    return texts;
  }
  /// Walks without an end asked for. @return the records changed
  qint64 Walk(const Replacement& replacement, Direction direction = Direction::All, qint64 row = 1,
              const QString& field = u"Amaintitle"_s) {
    BatchWalk walk(Shared().CurrentRecords, field, replacement, direction, row);
    EXPECT_TRUE(walk.Run([](qint64, qint64) { return true; }));
    return walk.Written();
  }
};

FOLVANE_ON_EACH_DATABASE(BatchUpdateTest);

// The conditions and the statements.

struct FilterCase {
  QString rights, query, filter;
};

TEST_P(BatchUpdateTest, TheFilterIsTheConditionsThatAreThere) {
  const std::vector<FilterCase> cases{
      {u""_s, u""_s, u"1=1"_s},
      {u"(RegID < 5)"_s, u""_s, u"(RegID < 5)"_s},
      {u""_s, u"Left(CreatedDate,4) = '2002'"_s, u"Left(CreatedDate,4) = '2002'"_s},
      {u"(RegID < 5)"_s, u"Unit = 'a'"_s, u"(RegID < 5) And Unit = 'a'"_s},
      {u"(RegID < 5 Or RegID > 9)"_s, u"Unit = 'a'"_s, u"(RegID < 5 Or RegID > 9) And Unit = 'a'"_s},
      {u"(RegID < 5)"_s, u"Unit = 'a' Or Unit = 'b'"_s, u"(RegID < 5) And (Unit = 'a' Or Unit = 'b')"_s},
      {u""_s, u"Unit = 'a' Or Unit = 'b'"_s, u"(Unit = 'a' Or Unit = 'b')"_s},
      {u""_s, u"Unit = ' Or '"_s, u"Unit = ' Or '"_s},
  };
  for (const FilterCase& each : cases) EXPECT_EQ(BrowserFilter(each.rights, each.query), each.filter);
}

TEST_P(BatchUpdateTest, ANullFieldAndAnEmptyOneAreFilledByTwoStatementsWithinTheBrowsersConditions) {
  WithTitles({u"甲"_s, u"<null>"_s, u""_s, u"<null>"_s, u""_s});
  const FillOfEmpty fill{u"Lwdj"_s, u"Amaintitle"_s, u"无题"_s, BrowserFilter(u"(RegID < 4)"_s, u"RegID > 0"_s)};
  EXPECT_EQ(fill.Count(Connected()), 2);
  log_->Take();
  fill.Run(*Connected());
  EXPECT_THAT(
      log_->Take(),
      ElementsAre(u"Update Lwdj Set Amaintitle ='无题' Where (RegID < 4) And RegID > 0 And Amaintitle Is Null"_s,
                  u"Update Lwdj Set Amaintitle ='无题' Where (RegID < 4) And RegID > 0 And Amaintitle = ''"_s));
  EXPECT_EQ(Titles(), (QStringList{u"甲"_s, u"无题"_s, u"无题"_s, u"<null>"_s, u""_s}));
}

TEST_P(BatchUpdateTest, AQueryWithOrDoesNotLetTheStatementsReachFieldsThatAreFilled) {
  WithTitles({u"甲"_s, u"<null>"_s, u""_s});
  const FillOfEmpty fill{u"Lwdj"_s, u"Amaintitle"_s, u"无题"_s, BrowserFilter({}, u"RegID = 1 Or RegID = 2"_s)};
  EXPECT_EQ(fill.Count(Connected()), 1);
  fill.Run(*Connected());
  EXPECT_EQ(Titles(), (QStringList{u"甲"_s, u"无题"_s, u""_s}));
}

TEST_P(BatchUpdateTest, AQuoteInTheValueBreaksTheStatements) {
  WithTitles({u""_s});
  const FillOfEmpty fill{u"Lwdj"_s, u"Amaintitle"_s, u"it's"_s, u"1=1"_s};
  EXPECT_THROW(fill.Run(*Connected()), DataError);
  EXPECT_EQ(Titles(), QStringList{u""_s});
}

TEST_P(BatchUpdateTest, BracketsInTheValueAreTextLikeAnyOther) {
  WithTitles({u""_s});
  FillOfEmpty{u"Lwdj"_s, u"Amaintitle"_s, u"[a]%_"_s, u"1=1"_s}.Run(*Connected());
  EXPECT_EQ(Titles(), QStringList{u"[a]%_"_s});
}

TEST_P(BatchUpdateTest, AConditionThatTheDatabaseRefusesRises) {
  WithTitles({u""_s});
  const FillOfEmpty fill{u"Lwdj"_s, u"Amaintitle"_s, u"x"_s, u"Nowhere = 'a'"_s};
  EXPECT_THROW(fill.Count(Connected()), DataError);
  EXPECT_THROW(fill.Run(*Connected()), DataError);
  EXPECT_EQ(Titles(), QStringList{u""_s});
}

// The walk.

TEST_P(BatchUpdateTest, EveryOccurrenceInAValueIsReplacedWithoutRegardToCase) {
  WithTitles({u"abcABC"_s, u"xyz"_s, u"<null>"_s, u"aB"_s});
  EXPECT_EQ(Walk({u"ab"_s, u"-"_s}), 2);
  EXPECT_EQ(Titles(), (QStringList{u"-c-C"_s, u"xyz"_s, u"<null>"_s, u"-"_s}));
  EXPECT_EQ(TitlesHeld(), (QStringList{u"-c-C"_s, u"xyz"_s, u""_s, u"-"_s}));
}

TEST_P(BatchUpdateTest, OrExactlyWhereCaseCounts) {
  WithTitles({u"abcABC"_s, u"AB"_s});
  EXPECT_EQ(Walk({u"ab"_s, u"-"_s, false, true}), 1);
  EXPECT_EQ(Titles(), (QStringList{u"-cABC"_s, u"AB"_s}));
}

TEST_P(BatchUpdateTest, TheWholeValueMustBeEqualAndCaseAlwaysCounts) {
  for (const bool matchCase : {false, true}) {
    design_->Run(u"delete from Lwdj"_s);
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    WithTitles({u"ab"_s, u"AB"_s, u"abc"_s});
    EXPECT_EQ(Walk({u"ab"_s, u"Z"_s, true, matchCase}), 1);
    EXPECT_EQ(Titles(), (QStringList{u"Z"_s, u"AB"_s, u"abc"_s}));
  }
}

TEST_P(BatchUpdateTest, DownWithAnEmptyTextToFindAndWholeValuesReplacesOnlyEmptyTextsAndLeavesNulls) {
  WithTitles({u""_s, u""_s, u"<null>"_s, u"甲"_s, u""_s});
  EXPECT_EQ(Walk({u""_s, u"空"_s, true}, Direction::Down, 2), 2);
  EXPECT_EQ(Titles(), (QStringList{u""_s, u"空"_s, u"<null>"_s, u"甲"_s, u"空"_s}));
}

TEST_P(BatchUpdateTest, DownWithAnEmptyTextToFindInPartsOfValuesChangesNothing) {
  WithTitles({u""_s, u"<null>"_s, u"甲"_s});
  EXPECT_EQ(Walk({u""_s, u"空"_s}, Direction::Down), 0);
  EXPECT_EQ(Titles(), (QStringList{u""_s, u"<null>"_s, u"甲"_s}));
}

TEST_P(BatchUpdateTest, DownAndUpBeginAtTheSelectedRowAndIncludeIt) {
  WithTitles({u"a"_s, u"a"_s, u"a"_s, u"a"_s});
  EXPECT_EQ(Walk({u"a"_s, u"d"_s}, Direction::Down, 3), 2);
  EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"a"_s, u"d"_s, u"d"_s}));
  EXPECT_EQ(Walk({u"a"_s, u"u"_s}, Direction::Up, 1), 1);
  EXPECT_EQ(Titles(), (QStringList{u"u"_s, u"a"_s, u"d"_s, u"d"_s}));
}

TEST_P(BatchUpdateTest, TheWalkReachesTheLoadedRowsOnly) {
  WithTitles({u"a"_s, u"a"_s});
  Shared().CurrentRecords.Close();
  Shared().CurrentRecords.Open(u"Select * From Lwdj Where RegID = 2"_s, Connected());
  EXPECT_EQ(Walk({u"a"_s, u"b"_s}), 1);
  EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"b"_s}));
}

TEST_P(BatchUpdateTest, QuotesAndBracketsAreTextToTheWalk) {
  WithTitles({u"it's [1]"_s});
  EXPECT_EQ(Walk({u"'s ["_s, u"\"%_'["_s}), 1);
  EXPECT_EQ(Titles(), QStringList{u"it\"%_'[1]"_s});
}

TEST_P(BatchUpdateTest, NumbersAreReplacedByTheirText) {
  WithTitles({u"a"_s, u"b"_s, u"c"_s});
  EXPECT_EQ(Walk({u"2"_s, u"20"_s}, Direction::All, 1, u"RegID"_s), 1);
  EXPECT_EQ(Column(u"RegID"_s), (QStringList{u"1"_s, u"20"_s, u"3"_s}));
}

TEST_P(BatchUpdateTest, AnEmptyListHasNothingToWalkOver) {
  WithTitles({});
  EXPECT_EQ(Walk({u"a"_s, u"b"_s}), 0);
  EXPECT_EQ(Walk({u"a"_s, u"b"_s}, Direction::Down), 0);
}

TEST_P(BatchUpdateTest, TheCountIsThatOfTheRecordsThatTheWalkChangesAndMovesNothing) {
  Recordset& records = WithTitles({u"a"_s, u"x"_s, u"A"_s, u"<null>"_s});
  records.SetAbsolutePosition(2);
  BatchWalk walk(records, u"Amaintitle"_s, {u"a"_s, u"b"_s}, Direction::All, 1);
  EXPECT_EQ(walk.Count(), 2);
  EXPECT_EQ(records.AbsolutePosition(), 2);
  EXPECT_EQ(records.PendingCount(), 0);
}

// Failures and stops.

TEST_P(BatchUpdateTest, AValueThatIsNoNumberStopsTheWalkWithTheEarlierRowsWritten) {
  Recordset& records = WithTitles({u"a"_s, u"b"_s, u"c"_s});
  for (const auto& [number, row] : {std::pair(17, 1), {21, 2}, {31, 3}})
    design_->Run(u"update Lwdj set RegID = %1 where RegID = %2"_s.arg(number).arg(row));
  records.Requery();
  BatchWalk walk(records, u"RegID"_s, {u"1"_s, u"-"_s}, Direction::All, 1);
  EXPECT_THROW(walk.Run([](qint64, qint64) { return true; }), DataError);
  EXPECT_EQ(Column(u"RegID"_s), (QStringList{u"-7"_s, u"21"_s, u"31"_s}));
  EXPECT_EQ(records.PendingCount(), 0);
  EXPECT_EQ(records.EditMode(), EditModeKind::None);
}

TEST_P(BatchUpdateTest, AValueThatIsTooLongIsFoundBeforeAnythingIsChanged) {
  Recordset& records = WithTitles({u"a"_s, u"aa"_s, u"a"_s});
  const QString longText(150, u'b');
  BatchWalk walk(records, u"Amaintitle"_s, {u"a"_s, longText}, Direction::All, 1);
  EXPECT_THROW(walk.Run([](qint64, qint64) { return true; }), DataError);
  EXPECT_EQ(walk.Written(), 0);
  EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"aa"_s, u"a"_s}));
  EXPECT_EQ(TitlesHeld(), (QStringList{u"a"_s, u"aa"_s, u"a"_s}));
  EXPECT_EQ(records.PendingCount(), 0);
}

TEST_P(BatchUpdateTest, ARowThatSomeoneElseHasChangedStopsTheWalkWithTheEarlierRowsWritten) {
  Recordset& records = WithTitles({u"a"_s, u"a"_s, u"a"_s});
  design_->Run(u"update Lwdj set Amaintitle = 'theirs' where RegID = 2"_s);
  BatchWalk walk(records, u"Amaintitle"_s, {u"a"_s, u"b"_s}, Direction::All, 1);
  EXPECT_THROW(walk.Run([](qint64, qint64) { return true; }), DataError);
  EXPECT_EQ(walk.Written(), 1);
  EXPECT_EQ(Titles(), (QStringList{u"b"_s, u"theirs"_s, u"a"_s}));
  EXPECT_EQ(TitlesHeld(), (QStringList{u"b"_s, u"a"_s, u"a"_s}));
  EXPECT_EQ(records.PendingCount(), 0);
}

TEST_P(BatchUpdateTest, AFieldThatIsNotThereIsAnErrorAndChangesNothing) {
  Recordset& records = WithTitles({u"a"_s});
  BatchWalk walk(records, u"Nowhere"_s, {u"a"_s, u"b"_s}, Direction::All, 1);
  EXPECT_THROW(walk.Count(), DataError);
  EXPECT_THROW(walk.Run([](qint64, qint64) { return true; }), DataError);
  EXPECT_EQ(records.AbsolutePosition(), 1);
}

TEST_P(BatchUpdateTest, AStopLeavesTheRowsBeforeItWrittenAndTheOthersAsTheyWere) {
  Recordset& records = WithTitles({u"a"_s, u"a"_s, u"a"_s});
  records.SetAbsolutePosition(3);
  std::vector<qint64> told;
  BatchWalk walk(records, u"Amaintitle"_s, {u"a"_s, u"b"_s}, Direction::All, 1);
  EXPECT_FALSE(walk.Run([&](qint64 done, qint64 maximum) {
    EXPECT_EQ(maximum, 3);
    told.push_back(done);
    return done < 2;
  }));
  EXPECT_THAT(told, ElementsAre(1, 2));
  EXPECT_EQ(Titles(), (QStringList{u"b"_s, u"b"_s, u"a"_s}));
  EXPECT_EQ(records.PendingCount(), 0);
  EXPECT_EQ(records.AbsolutePosition(), 3);
}

TEST_P(BatchUpdateTest, AWalkOverMoreThanAPortionWritesEveryRow) {
  design_->AddRecords(u"Lwdj"_s, 1203);
  Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
  EXPECT_EQ(Walk({u"题名"_s, u"标题"_s}), 1203);
  EXPECT_EQ(Database().Value(u"select count(*) from Lwdj where Amaintitle like '标题%'"_s), u"1203"_s);
}

}  // namespace
}  // namespace folvane::test
