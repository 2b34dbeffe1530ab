#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

// Two users at one row: what the second one meets when he writes.
class Conflicts : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
    Remark().SetValue(u"mine"_s);
  }
  Field Remark() { return (*records_)[u"remark"_s]; }
  void TheyChangeIt() { Meanwhile(u"UPDATE files SET remark = 'theirs' WHERE id = 1"_s); }
  void TheyDeleteIt() { Meanwhile(u"DELETE FROM files WHERE id = 1"_s); }
  void MeetConflict() {
    EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Conflicts);

TEST_P(Conflicts, AValueThatAnotherChangedIsNotOverwritten) {
  TheyChangeIt();
  MeetConflict();
  EXPECT_EQ(Stored(1, u"remark"_s), u"theirs"_s);
  EXPECT_EQ(Remark().Text(), u"mine"_s);
  EXPECT_EQ(records_->PendingCount(), 1);
  EXPECT_EQ(records_->AbsolutePosition(), 1);
}

TEST_P(Conflicts, ARowThatAnotherDeletedIsToldAndStaysPending) {
  TheyDeleteIt();
  MeetConflict();
  EXPECT_EQ(Remark().Text(), u"mine"_s);
  EXPECT_EQ(records_->PendingCount(), 1);
}

TEST_P(Conflicts, DeletingARowThatAnotherDeletedIsAConflict) {
  TheyDeleteIt();
  records_->CancelUpdate();
  records_->Delete();
  MeetConflict();
  records_->CancelBatch();
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Conflicts, TheRowCanBeGivenUp) {
  TheyChangeIt();
  MeetConflict();
  records_->CancelBatch();
  EXPECT_EQ(Remark().Text(), u"甲"_s);
  EXPECT_EQ(records_->PendingCount(), 0);
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"theirs"_s);
}

TEST_P(Conflicts, ResyncedTheRowShowsTheirValueAndCanBeWrittenAgain) {
  TheyChangeIt();
  MeetConflict();
  records_->Resync(AffectKind::Current);
  EXPECT_EQ(Remark().Text(), u"theirs"_s);
  EXPECT_EQ(records_->PendingCount(), 0);
  Remark().SetValue(u"mine again"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"mine again"_s);
}

TEST_P(Conflicts, OneRowInConflictKeepsTheWholeBatchFromBeingWritten) {
  TheyChangeIt();
  StandOn(*records_, 2);
  Remark().SetValue(u"also mine"_s);
  MeetConflict();
  EXPECT_EQ(Stored(2, u"remark"_s), u"<null>"_s);
  EXPECT_EQ(records_->PendingCount(), 2);
  records_->UpdateBatch(AffectKind::Current);
  EXPECT_EQ(Stored(2, u"remark"_s), u"also mine"_s);
}

TEST_P(Conflicts, ANullThatAnotherFilledIsAConflict) {
  records_->CancelUpdate();
  StandOn(*records_, 2);
  Remark().SetValue(u"mine"_s);
  Meanwhile(u"UPDATE files SET remark = 'theirs' WHERE id = 2"_s);
  MeetConflict();
  EXPECT_EQ(Stored(2, u"remark"_s), u"theirs"_s);
}

TEST_P(Conflicts, ANumberOrADateThatAnotherChangedIsAConflict) {
  records_->CancelUpdate();
  (*records_)[u"pages"_s].SetValue(11);
  Meanwhile(u"UPDATE files SET pages = 12, filed = '2003-03-03' WHERE id = 1"_s);
  MeetConflict();
  records_->CancelBatch();
  (*records_)[u"filed"_s].SetValue(u"2004-04-04"_s);
  MeetConflict();
  EXPECT_EQ(Stored(1, u"filed"_s), u"2003-03-03"_s);
}

TEST_P(Conflicts, TheSameValueWrittenByAnotherIsNoConflictOfAnOtherwiseChangedRow) {
  Meanwhile(u"UPDATE files SET remark = '甲', pages = 99 WHERE id = 1"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"mine"_s);
  EXPECT_EQ(Stored(1, u"pages"_s), u"99"_s);
}

TEST_P(Conflicts, TheNextRowInLineIsNotTakenForTheVanishedOne) {
  TheyDeleteIt();
  MeetConflict();
  for (const int id : {2, 3, 4, 5}) EXPECT_NE(Stored(id, u"remark"_s), u"mine"_s);
}

}  // namespace

}  // namespace folvane::test
