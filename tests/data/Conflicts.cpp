#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

// Two users at one row: what the second one meets when he writes.
class Conflicts : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
    Remark().SetValue(QStringLiteral("mine"));
  }
  Field Remark() { return (*records_)[QStringLiteral("remark")]; }
  void TheyChangeIt() { Meanwhile(QStringLiteral("UPDATE files SET remark = 'theirs' WHERE id = 1")); }
  void TheyDeleteIt() { Meanwhile(QStringLiteral("DELETE FROM files WHERE id = 1")); }
  void MeetConflict() {
    EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Conflicts);

TEST_P(Conflicts, AValueThatAnotherChangedIsNotOverwritten) {
  TheyChangeIt();
  MeetConflict();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("theirs"));
  EXPECT_EQ(Remark().Text(), QStringLiteral("mine"));
  EXPECT_EQ(records_->PendingCount(), 1);
  EXPECT_EQ(records_->AbsolutePosition(), 1);
}

TEST_P(Conflicts, ARowThatAnotherDeletedIsToldAndStaysPending) {
  TheyDeleteIt();
  MeetConflict();
  EXPECT_EQ(Remark().Text(), QStringLiteral("mine"));
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
  EXPECT_EQ(Remark().Text(), QStringLiteral("甲"));
  EXPECT_EQ(records_->PendingCount(), 0);
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("theirs"));
}

TEST_P(Conflicts, ResyncedTheRowShowsTheirValueAndCanBeWrittenAgain) {
  TheyChangeIt();
  MeetConflict();
  records_->Resync(AffectKind::Current);
  EXPECT_EQ(Remark().Text(), QStringLiteral("theirs"));
  EXPECT_EQ(records_->PendingCount(), 0);
  Remark().SetValue(QStringLiteral("mine again"));
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("mine again"));
}

TEST_P(Conflicts, OneRowInConflictKeepsTheWholeBatchFromBeingWritten) {
  TheyChangeIt();
  StandOn(*records_, 2);
  Remark().SetValue(QStringLiteral("also mine"));
  MeetConflict();
  EXPECT_EQ(Stored(2, QStringLiteral("remark")), QStringLiteral("<null>"));
  EXPECT_EQ(records_->PendingCount(), 2);
  records_->UpdateBatch(AffectKind::Current);
  EXPECT_EQ(Stored(2, QStringLiteral("remark")), QStringLiteral("also mine"));
}

TEST_P(Conflicts, ANullThatAnotherFilledIsAConflict) {
  records_->CancelUpdate();
  StandOn(*records_, 2);
  Remark().SetValue(QStringLiteral("mine"));
  Meanwhile(QStringLiteral("UPDATE files SET remark = 'theirs' WHERE id = 2"));
  MeetConflict();
  EXPECT_EQ(Stored(2, QStringLiteral("remark")), QStringLiteral("theirs"));
}

TEST_P(Conflicts, ANumberOrADateThatAnotherChangedIsAConflict) {
  records_->CancelUpdate();
  (*records_)[QStringLiteral("pages")].SetValue(11);
  Meanwhile(QStringLiteral("UPDATE files SET pages = 12, filed = '2003-03-03' WHERE id = 1"));
  MeetConflict();
  records_->CancelBatch();
  (*records_)[QStringLiteral("filed")].SetValue(QStringLiteral("2004-04-04"));
  MeetConflict();
  EXPECT_EQ(Stored(1, QStringLiteral("filed")), QStringLiteral("2003-03-03"));
}

TEST_P(Conflicts, TheSameValueWrittenByAnotherIsNoConflictOfAnOtherwiseChangedRow) {
  Meanwhile(QStringLiteral("UPDATE files SET remark = '甲', pages = 99 WHERE id = 1"));
  records_->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("mine"));
  EXPECT_EQ(Stored(1, QStringLiteral("pages")), QStringLiteral("99"));
}

TEST_P(Conflicts, TheNextRowInLineIsNotTakenForTheVanishedOne) {
  TheyDeleteIt();
  MeetConflict();
  for (const int id : {2, 3, 4, 5}) EXPECT_NE(Stored(id, QStringLiteral("remark")), QStringLiteral("mine"));
}

}  // namespace

}  // namespace folvane::test
