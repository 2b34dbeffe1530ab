#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Positions : public DataSuite {};
FOLVANE_ON_EACH_DATABASE(Positions);

TEST_P(Positions, AnOpenRecordSetStandsOnItsFirstRow) {
  const auto records = Open();
  EXPECT_EQ(records->RecordCount(), 5);
  EXPECT_EQ(records->AbsolutePosition(), 1);
  EXPECT_FALSE(records->BOF());
  EXPECT_FALSE(records->EOF_());
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("A-001"));
}

TEST_P(Positions, AnEmptyRecordSetIsAtBothEnds) {
  const auto records = Open(QStringLiteral("Select * From files Where id > 99"));
  EXPECT_EQ(records->RecordCount(), 0);
  EXPECT_TRUE(records->BOF());
  EXPECT_TRUE(records->EOF_());
  EXPECT_EQ(records->Fields().Count(), 6);
  EXPECT_EQ(FailureOf([&] { records->MoveFirst(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { (*records)[QStringLiteral("code")].Value(); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Positions, MovesGoToTheEndsAndNotBeyond) {
  const auto records = Open();
  records->MoveLast();
  EXPECT_EQ(records->AbsolutePosition(), 5);
  records->MoveNext();
  EXPECT_TRUE(records->EOF_());
  EXPECT_EQ(records->AbsolutePosition(), -3);
  EXPECT_EQ(FailureOf([&] { records->MoveNext(); }).Kind(), DataErrorKind::Usage);
  records->MovePrevious();
  EXPECT_EQ(records->AbsolutePosition(), 5);
  records->MoveFirst();
  records->MovePrevious();
  EXPECT_TRUE(records->BOF());
  EXPECT_EQ(records->AbsolutePosition(), -2);
  EXPECT_EQ(FailureOf([&] { records->MovePrevious(); }).Kind(), DataErrorKind::Usage);
  records->MoveNext();
  EXPECT_EQ(records->AbsolutePosition(), 1);
}

TEST_P(Positions, AMoveCountsFromWhereItIsTold) {
  const auto records = Open();
  records->Move(2);
  EXPECT_EQ(records->AbsolutePosition(), 3);
  records->Move(-1);
  EXPECT_EQ(records->AbsolutePosition(), 2);
  records->Move(3, MoveFrom::First);
  EXPECT_EQ(records->AbsolutePosition(), 4);
  records->Move(-4, MoveFrom::Last);
  EXPECT_EQ(records->AbsolutePosition(), 1);
  records->Move(7);
  EXPECT_TRUE(records->EOF_());
  records->Move(-7);
  EXPECT_TRUE(records->BOF());
}

TEST_P(Positions, ThePositionCanBeSetByItsNumber) {
  const auto records = Open();
  records->SetAbsolutePosition(4);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("B-002"));
  EXPECT_EQ(FailureOf([&] { records->SetAbsolutePosition(6); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records->SetAbsolutePosition(0); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(records->AbsolutePosition(), 4);
}

TEST_P(Positions, FieldsAreFoundWhateverTheCaseOfTheirNames) {
  const auto records = Open();
  EXPECT_EQ((*records)[QStringLiteral("TITLE")].Text(), (*records)[QStringLiteral("Title")].Text());
  EXPECT_EQ(records->Fields().IndexOf(QStringLiteral("CODE")), 1);
  EXPECT_EQ(records->Fields().IndexOf(QStringLiteral("nothing")), -1);
}

TEST_P(Positions, AnUnknownFieldIsAnErrorThatNamesIt) {
  const auto records = Open();
  const DataError error = FailureOf([&] { (*records)[QStringLiteral("nothing")].Value(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(error.Message().contains(QStringLiteral("nothing")));
  EXPECT_EQ(FailureOf([&] { records->Fields().Item(6); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Positions, AClosedRecordSetRefusesEverythingButOpening) {
  Recordset records;
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.RecordCount(); }).Kind(), DataErrorKind::Usage);
  records.Open(QStringLiteral("Select * From files"), Connected());
  EXPECT_EQ(FailureOf([&] { records.Open(QStringLiteral("Select * From files"), Connected()); }).Kind(),
            DataErrorKind::Usage);
  records.Close();
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.MoveNext(); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Positions, AFailedOpenLeavesTheRecordSetClosed) {
  Recordset records;
  EXPECT_EQ(FailureOf([&] { records.Open(QStringLiteral("Select * From nowhere"), Connected()); }).Kind(),
            DataErrorKind::Statement);
  EXPECT_FALSE(records.IsOpen());
  records.Open(QStringLiteral("Select * From files"), Connected());
  EXPECT_EQ(records.Source(), QStringLiteral("Select * From files"));
}

TEST_P(Positions, ABookmarkNamesItsRowThroughSortAndFilter) {
  const auto records = Open();
  EXPECT_EQ(records->Bookmark(), 1);
  StandOn(*records, 4);
  const qint64 bookmark = records->Bookmark();
  records->SetSort(QStringLiteral("code Desc"));
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("B-002"));
  records->SetFilter(QStringLiteral("code Like 'B*'"));
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("B-002"));
  records->SetFilter(QString());
  records->SetSort(QString());
  records->SetBookmark(bookmark);
  EXPECT_EQ(records->AbsolutePosition(), 4);
}

TEST_P(Positions, ABookmarkOfARowThatIsNotShownIsAnErrorAndThePositionStays) {
  const auto records = Open();
  StandOn(*records, 1);
  const qint64 bookmark = records->Bookmark();
  records->SetFilter(QStringLiteral("code Like 'B*'"));
  records->MoveLast();
  EXPECT_EQ(FailureOf([&] { records->SetBookmark(bookmark); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records->SetBookmark(77); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(records->AbsolutePosition(), 2);
}

TEST_P(Positions, ABookmarkOutlastsRowsAddedAndDeleted) {
  const auto records = Open();
  StandOn(*records, 3);
  const qint64 bookmark = records->Bookmark();
  records->MoveFirst();
  records->Delete();
  records->AddNew();
  (*records)[QStringLiteral("id")].SetValue(9);
  records->Update();
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("B-001"));
  EXPECT_EQ(records->AbsolutePosition(), 2);
}

}  // namespace

}  // namespace folvane::test
