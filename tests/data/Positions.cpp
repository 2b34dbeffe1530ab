#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Positions : public DataSuite {};
FOLVANE_ON_EACH_DATABASE(Positions);

TEST_P(Positions, AnOpenRecordSetStandsOnItsFirstRow) {
  const auto records = Open();
  EXPECT_EQ(records->RecordCount(), 5);
  EXPECT_EQ(records->AbsolutePosition(), 1);
  EXPECT_FALSE(records->BOF());
  EXPECT_FALSE(records->EOF_());
  EXPECT_EQ((*records)[u"code"_s].Text(), u"A-001"_s);
}

TEST_P(Positions, AnEmptyRecordSetIsAtBothEnds) {
  const auto records = Open(u"Select * From files Where id > 99"_s);
  EXPECT_EQ(records->RecordCount(), 0);
  EXPECT_TRUE(records->BOF());
  EXPECT_TRUE(records->EOF_());
  EXPECT_EQ(records->Fields().Count(), 6);
  EXPECT_EQ(FailureOf([&] { records->MoveFirst(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { (*records)[u"code"_s].Value(); }).Kind(), DataErrorKind::Usage);
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
  EXPECT_EQ((*records)[u"code"_s].Text(), u"B-002"_s);
  EXPECT_EQ(FailureOf([&] { records->SetAbsolutePosition(6); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records->SetAbsolutePosition(0); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(records->AbsolutePosition(), 4);
}

TEST_P(Positions, FieldsAreFoundWhateverTheCaseOfTheirNames) {
  const auto records = Open();
  EXPECT_EQ((*records)[u"TITLE"_s].Text(), (*records)[u"Title"_s].Text());
  EXPECT_EQ(records->Fields().IndexOf(u"CODE"_s), 1);
  EXPECT_EQ(records->Fields().IndexOf(u"nothing"_s), -1);
}

TEST_P(Positions, AnUnknownFieldIsAnErrorThatNamesIt) {
  const auto records = Open();
  const DataError error = FailureOf([&] { (*records)[u"nothing"_s].Value(); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(error.Message().contains(u"nothing"_s));
  EXPECT_EQ(FailureOf([&] { records->Fields().Item(6); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Positions, AClosedRecordSetRefusesEverythingButOpening) {
  Recordset records;
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.RecordCount(); }).Kind(), DataErrorKind::Usage);
  records.Open(u"Select * From files"_s, Connected());
  EXPECT_EQ(FailureOf([&] { records.Open(u"Select * From files"_s, Connected()); }).Kind(), DataErrorKind::Usage);
  records.Close();
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.MoveNext(); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Positions, AFailedOpenLeavesTheRecordSetClosed) {
  Recordset records;
  EXPECT_EQ(FailureOf([&] { records.Open(u"Select * From nowhere"_s, Connected()); }).Kind(), DataErrorKind::Statement);
  EXPECT_FALSE(records.IsOpen());
  records.Open(u"Select * From files"_s, Connected());
  EXPECT_EQ(records.Source(), u"Select * From files"_s);
}

TEST_P(Positions, ABookmarkNamesItsRowThroughSortAndFilter) {
  const auto records = Open();
  EXPECT_EQ(records->Bookmark(), 1);
  StandOn(*records, 4);
  const qint64 bookmark = records->Bookmark();
  records->SetSort(u"code Desc"_s);
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[u"code"_s].Text(), u"B-002"_s);
  records->SetFilter(u"code Like 'B*'"_s);
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[u"code"_s].Text(), u"B-002"_s);
  records->SetFilter(QString());
  records->SetSort(QString());
  records->SetBookmark(bookmark);
  EXPECT_EQ(records->AbsolutePosition(), 4);
}

TEST_P(Positions, ABookmarkOfARowThatIsNotShownIsAnErrorAndThePositionStays) {
  const auto records = Open();
  StandOn(*records, 1);
  const qint64 bookmark = records->Bookmark();
  records->SetFilter(u"code Like 'B*'"_s);
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
  (*records)[u"id"_s].SetValue(9);
  records->Update();
  records->SetBookmark(bookmark);
  EXPECT_EQ((*records)[u"code"_s].Text(), u"B-001"_s);
  EXPECT_EQ(records->AbsolutePosition(), 2);
}

}  // namespace

}  // namespace folvane::test
