#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Requeries : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  QString Ids() { return Texts(*records_, QStringLiteral("id")).join(QLatin1Char(' ')); }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Requeries);

TEST_P(Requeries, ARequeryShowsWhatOthersDidAndStandsOnTheFirstRow) {
  records_->MoveLast();
  Meanwhile(QStringLiteral("DELETE FROM files WHERE id = 2"));
  Meanwhile(QStringLiteral("INSERT INTO files (id, code) VALUES (6, 'C-001')"));
  EXPECT_EQ(records_->RecordCount(), 5);
  records_->Requery();
  EXPECT_EQ(records_->AbsolutePosition(), 1);
  EXPECT_EQ(Ids(), QStringLiteral("1 3 4 5 6"));
}

TEST_P(Requeries, ARequeryKeepsFilterAndSort) {
  records_->SetFilter(QStringLiteral("code Like 'A%'"));
  records_->SetSort(QStringLiteral("id Desc"));
  Meanwhile(QStringLiteral("INSERT INTO files (id, code) VALUES (6, 'A-009')"));
  records_->Requery();
  EXPECT_EQ(Ids(), QStringLiteral("6 5 2 1"));
}

TEST_P(Requeries, ARequeryDropsChangesThatWaitForTheBatch) {
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("x"));
  records_->Update();
  records_->Requery();
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ((*records_)[QStringLiteral("remark")].Text(), QStringLiteral("甲"));
}

TEST_P(Requeries, ARequeryDuringAnEditIsRefused) {
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("x"));
  EXPECT_EQ(FailureOf([&] { records_->Requery(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ((*records_)[QStringLiteral("remark")].Text(), QStringLiteral("x"));
}

TEST_P(Requeries, ARequeryThatFailsLeavesRowsAndPosition) {
  records_->MoveLast();
  Meanwhile(QStringLiteral("DROP TABLE files"));
  EXPECT_EQ(FailureOf([&] { records_->Requery(); }).Kind(), DataErrorKind::Statement);
  EXPECT_EQ(records_->AbsolutePosition(), 5);
  EXPECT_EQ(Ids(), QStringLiteral("1 2 3 4 5"));
}

TEST_P(Requeries, AResyncReadsTheCurrentRowAgain) {
  Meanwhile(QStringLiteral("UPDATE files SET remark = 'theirs'"));
  records_->Resync(AffectKind::Current);
  EXPECT_EQ(Texts(*records_, QStringLiteral("remark")).mid(0, 2), (QStringList{QStringLiteral("theirs"), QString()}));
}

TEST_P(Requeries, AResyncOfAllReadsEveryRowAgain) {
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("mine"));
  Meanwhile(QStringLiteral("UPDATE files SET remark = 'theirs'"));
  records_->Resync(AffectKind::All);
  EXPECT_EQ(Texts(*records_, QStringLiteral("remark")).count(QStringLiteral("theirs")), 5);
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Requeries, AResyncOfARowThatIsGoneIsAConflict) {
  Meanwhile(QStringLiteral("DELETE FROM files WHERE id = 1"));
  EXPECT_EQ(FailureOf([&] { records_->Resync(AffectKind::Current); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ((*records_)[QStringLiteral("remark")].Text(), QStringLiteral("甲"));
}

TEST_P(Requeries, ARecordSetOutlivesTheHandOverOfItsConnection) {
  std::shared_ptr<folvane::Connection> another = Database().Connect();
  Recordset records;
  records.Open(QStringLiteral("Select * From files Order By id"), another);
  another.reset();
  records.MoveNext();
  records[QStringLiteral("remark")].SetValue(QStringLiteral("x"));
  records.UpdateBatch();
  EXPECT_EQ(Stored(2, QStringLiteral("remark")), QStringLiteral("x"));
}

}  // namespace

}  // namespace folvane::test
