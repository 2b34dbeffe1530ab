#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Requeries : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  QString Ids() { return Texts(*records_, u"id"_s).join(u' '); }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Requeries);

TEST_P(Requeries, ARequeryShowsWhatOthersDidAndStandsOnTheFirstRow) {
  records_->MoveLast();
  Meanwhile(u"DELETE FROM files WHERE id = 2"_s);
  Meanwhile(u"INSERT INTO files (id, code) VALUES (6, 'C-001')"_s);
  EXPECT_EQ(records_->RecordCount(), 5);
  records_->Requery();
  EXPECT_EQ(records_->AbsolutePosition(), 1);
  EXPECT_EQ(Ids(), u"1 3 4 5 6"_s);
}

TEST_P(Requeries, ARequeryKeepsFilterAndSort) {
  records_->SetFilter(u"code Like 'A%'"_s);
  records_->SetSort(u"id Desc"_s);
  Meanwhile(u"INSERT INTO files (id, code) VALUES (6, 'A-009')"_s);
  records_->Requery();
  EXPECT_EQ(Ids(), u"6 5 2 1"_s);
}

TEST_P(Requeries, ARequeryDropsChangesThatWaitForTheBatch) {
  (*records_)[u"remark"_s].SetValue(u"x"_s);
  records_->Update();
  records_->Requery();
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ((*records_)[u"remark"_s].Text(), u"甲"_s);
}

TEST_P(Requeries, ARequeryDuringAnEditIsRefused) {
  (*records_)[u"remark"_s].SetValue(u"x"_s);
  EXPECT_EQ(FailureOf([&] { records_->Requery(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ((*records_)[u"remark"_s].Text(), u"x"_s);
}

TEST_P(Requeries, ARequeryThatFailsLeavesRowsAndPosition) {
  records_->MoveLast();
  Meanwhile(u"DROP TABLE files"_s);
  EXPECT_EQ(FailureOf([&] { records_->Requery(); }).Kind(), DataErrorKind::Statement);
  EXPECT_EQ(records_->AbsolutePosition(), 5);
  EXPECT_EQ(Ids(), u"1 2 3 4 5"_s);
}

TEST_P(Requeries, AResyncReadsTheCurrentRowAgain) {
  Meanwhile(u"UPDATE files SET remark = 'theirs'"_s);
  records_->Resync(AffectKind::Current);
  EXPECT_EQ(Texts(*records_, u"remark"_s).mid(0, 2), (QStringList{u"theirs"_s, QString()}));
}

TEST_P(Requeries, AResyncOfAllReadsEveryRowAgain) {
  (*records_)[u"remark"_s].SetValue(u"mine"_s);
  Meanwhile(u"UPDATE files SET remark = 'theirs'"_s);
  records_->Resync(AffectKind::All);
  EXPECT_EQ(Texts(*records_, u"remark"_s).count(u"theirs"_s), 5);
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Requeries, AResyncOfARowThatIsGoneIsAConflict) {
  Meanwhile(u"DELETE FROM files WHERE id = 1"_s);
  EXPECT_EQ(FailureOf([&] { records_->Resync(AffectKind::Current); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ((*records_)[u"remark"_s].Text(), u"甲"_s);
}

TEST_P(Requeries, ARecordSetOutlivesTheHandOverOfItsConnection) {
  std::shared_ptr<folvane::Connection> another = Database().Connect();
  Recordset records;
  records.Open(u"Select * From files Order By id"_s, another);
  another.reset();
  records.MoveNext();
  records[u"remark"_s].SetValue(u"x"_s);
  records.UpdateBatch();
  EXPECT_EQ(Stored(2, u"remark"_s), u"x"_s);
}

}  // namespace

}  // namespace folvane::test
