#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Transactions : public DataSuite {
 protected:
  void Mark(int id) {
    Connected()->Execute(QStringLiteral("Update files Set remark = 'marked' Where id = %1").arg(id));
  }
  int Marked() {
    return Database().Value(QStringLiteral("SELECT count(*) FROM files WHERE remark = 'marked'")).toInt();
  }
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
    Connected()->Execute(QStringLiteral("Insert Into files (id, code) Values (1, 'x')"));
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
  FailureOf([&] { Connected()->Execute(QStringLiteral("Insert Into files (id, code) Values (1, 'x')")); });
  FailureOf([&] { Connected()->Execute(QStringLiteral("Delete From nowhere")); });
  Mark(2);
  transaction.Commit();
  EXPECT_EQ(Marked(), 2);
}

TEST_P(Transactions, TheWritesOfARecordSetBelongToTheTransaction) {
  const auto records = Open();
  Connected()->BeginTrans();
  for (const int id : {1, 2, 3}) {
    StandOn(*records, id);
    (*records)[QStringLiteral("remark")].SetValue(QStringLiteral("marked"));
  }
  records->UpdateBatch();
  EXPECT_EQ(Marked(), 0);
  Connected()->RollbackTrans();
  EXPECT_EQ(Marked(), 0);
}

TEST_P(Transactions, AStatementRepeatedManyTimesGivesEachRowItsOwnValues) {
  Connected()->BeginTrans();
  for (int id = 100; id < 300; ++id)
    Connected()->NativeDriver().Execute(
        {"INSERT INTO files (id, code, title, pages, remark) VALUES (?, ?, ?, ?, ?)",
         {qlonglong(id), QString::number(id), id % 2 ? QVariant() : QVariant(QString(id, QChar(0x6863)).left(60)),
          id % 3 ? QVariant(qlonglong(id) * 7) : QVariant(), QStringLiteral("r%1").arg(id)}});
  Connected()->CommitTrans();
  EXPECT_EQ(Stored(299, QStringLiteral("title")), QStringLiteral("<null>"));
  EXPECT_EQ(Stored(298, QStringLiteral("title")).size(), 60);
  EXPECT_EQ(Stored(298, QStringLiteral("pages")), QString::number(298 * 7));
  EXPECT_EQ(Stored(297, QStringLiteral("pages")), QStringLiteral("<null>"));
  EXPECT_EQ(Stored(123, QStringLiteral("remark")), QStringLiteral("r123"));
}

TEST_P(Transactions, SeveralRowsOfABatchAreWrittenTogetherOrNotAtAll) {
  const auto records = Open();
  StandOn(*records, 1);
  (*records)[QStringLiteral("remark")].SetValue(QStringLiteral("marked"));
  StandOn(*records, 5);
  (*records)[QStringLiteral("code")].SetValue({});
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Constraint);
  EXPECT_EQ(Marked(), 0);
  EXPECT_EQ(records->PendingCount(), 2);
  EXPECT_FALSE(Connected()->InTransaction());

  (*records)[QStringLiteral("code")].SetValue(QStringLiteral("C-001"));
  records->UpdateBatch();
  EXPECT_EQ(Marked(), 1);
  EXPECT_EQ(records->PendingCount(), 0);
}

}  // namespace

}  // namespace folvane::test
