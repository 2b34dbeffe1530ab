#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Transactions : public DataSuite {
 protected:
  void Mark(int id) { Connected()->Execute(u"Update files Set remark = 'marked' Where id = %1"_s.arg(id)); }
  int Marked() { return Database().Value(u"SELECT count(*) FROM files WHERE remark = 'marked'"_s).toInt(); }
};
FOLVANE_ON_EACH_DATABASE(Transactions);

TEST_P(Transactions, OthersSeeTheChangesOnceTheyAreCommitted) {
  Connected()->BeginTrans();
  Mark(1);
  Mark(2);
  EXPECT_TRUE(Connected()->InTransaction());
  EXPECT_EQ(Marked(), 0);
  Connected()->CommitTrans();
  EXPECT_FALSE(Connected()->InTransaction());
  EXPECT_EQ(Marked(), 2);
}

TEST_P(Transactions, ARollbackUndoesEverythingSinceTheBeginning) {
  Mark(1);
  Connected()->BeginTrans();
  Mark(2);
  Mark(3);
  Connected()->RollbackTrans();
  EXPECT_EQ(Marked(), 1);
}

TEST_P(Transactions, AStatementAfterTheTransactionStandsByItself) {
  Connected()->BeginTrans();
  Connected()->RollbackTrans();
  Mark(1);
  EXPECT_EQ(Marked(), 1);
}

TEST_P(Transactions, ASecondOneInsideTheFirstIsAnError) {
  Connected()->BeginTrans();
  Mark(1);
  EXPECT_EQ(FailureOf([&] { Connected()->BeginTrans(); }).Kind(), DataErrorKind::Usage);
  Connected()->CommitTrans();
  EXPECT_EQ(Marked(), 1);
}

TEST_P(Transactions, CommitAndRollbackWithoutABeginningAreErrors) {
  EXPECT_EQ(FailureOf([&] { Connected()->CommitTrans(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { Connected()->RollbackTrans(); }).Kind(), DataErrorKind::Usage);
}

TEST_P(Transactions, AScopeThatIsLeftByAnErrorRollsBack) {
  const DataError error = FailureOf([&] {
    Transaction transaction(*Connected());
    Mark(1);
    Connected()->Execute(u"Insert Into files (id, code) Values (1, 'x')"_s);
    transaction.Commit();
  });
  EXPECT_EQ(error.Kind(), DataErrorKind::Constraint);
  EXPECT_FALSE(Connected()->InTransaction());
  EXPECT_EQ(Marked(), 0);
}

TEST_P(Transactions, AScopeThatIsCommittedKeepsItsChanges) {
  {
    Transaction transaction(*Connected());
    Mark(1);
    transaction.Commit();
  }
  EXPECT_EQ(Marked(), 1);
}

TEST_P(Transactions, AnErrorThatIsPassedOverLosesNothingElse) {
  Transaction transaction(*Connected());
  Mark(1);
  FailureOf([&] { Connected()->Execute(u"Insert Into files (id, code) Values (1, 'x')"_s); });
  FailureOf([&] { Connected()->Execute(u"Delete From nowhere"_s); });
  Mark(2);
  transaction.Commit();
  EXPECT_EQ(Marked(), 2);
}

TEST_P(Transactions, TheWritesOfARecordSetBelongToTheTransaction) {
  const auto records = Open();
  Connected()->BeginTrans();
  for (const int id : {1, 2, 3}) {
    StandOn(*records, id);
    (*records)[u"remark"_s].SetValue(u"marked"_s);
  }
  records->UpdateBatch();
  EXPECT_EQ(Marked(), 0);
  Connected()->RollbackTrans();
  EXPECT_EQ(Marked(), 0);
}

TEST_P(Transactions, AStatementRepeatedManyTimesGivesEachRowItsOwnValues) {
  Connected()->BeginTrans();
  for (int id = 100; id < 300; ++id)
    DatabaseSession::Of(*Connected())
        .NativeDriver()
        .Execute(
            {"INSERT INTO files (id, code, title, pages, remark) VALUES (?, ?, ?, ?, ?)",
             {qlonglong(id), QString::number(id), id % 2 ? QVariant() : QVariant(QString(id, QChar(0x6863)).left(60)),
              id % 3 ? QVariant(qlonglong(id) * 7) : QVariant(), u"r%1"_s.arg(id)}});
  Connected()->CommitTrans();
  EXPECT_EQ(Stored(299, u"title"_s), u"<null>"_s);
  EXPECT_EQ(Stored(298, u"title"_s).size(), 60);
  EXPECT_EQ(Stored(298, u"pages"_s), QString::number(298 * 7));
  EXPECT_EQ(Stored(297, u"pages"_s), u"<null>"_s);
  EXPECT_EQ(Stored(123, u"remark"_s), u"r123"_s);
}

TEST_P(Transactions, SeveralRowsOfABatchAreWrittenTogetherOrNotAtAll) {
  const auto records = Open();
  StandOn(*records, 1);
  (*records)[u"remark"_s].SetValue(u"marked"_s);
  StandOn(*records, 5);
  (*records)[u"code"_s].SetValue({});
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Constraint);
  EXPECT_EQ(Marked(), 0);
  EXPECT_EQ(records->PendingCount(), 2);
  EXPECT_FALSE(Connected()->InTransaction());

  (*records)[u"code"_s].SetValue(u"C-001"_s);
  records->UpdateBatch();
  EXPECT_EQ(Marked(), 1);
  EXPECT_EQ(records->PendingCount(), 0);
}

}  // namespace

}  // namespace folvane::test
