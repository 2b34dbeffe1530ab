#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Batches : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  void Change(int id, const char* remark) {
    StandOn(*records_, id);
    (*records_)[QStringLiteral("remark")].SetValue(QString::fromUtf8(remark));
  }
  QString Remark(int id) { return Stored(id, QStringLiteral("remark")); }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Batches);

TEST_P(Batches, NothingIsWrittenBeforeTheBatchIs) {
  Change(1, "one");
  records_->Update();
  EXPECT_EQ(Remark(1), QStringLiteral("甲"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), QStringLiteral("one"));
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ((*records_)[QStringLiteral("remark")].OriginalValue(), QVariant(QStringLiteral("one")));
}

TEST_P(Batches, TheCurrentRowAloneCanBeWritten) {
  Change(1, "one");
  Change(2, "two");
  records_->UpdateBatch(AffectKind::Current);
  EXPECT_EQ(Remark(1), QStringLiteral("甲"));
  EXPECT_EQ(Remark(2), QStringLiteral("two"));
  EXPECT_EQ(records_->PendingCount(), 1);
}

TEST_P(Batches, AllRowsAreWrittenWhateverTheFilterShows) {
  for (const AffectKind affect : {AffectKind::All, AffectKind::AllChapters}) {
    const QString text = affect == AffectKind::All ? QStringLiteral("all") : QStringLiteral("chapters");
    Change(1, text.toUtf8());
    Change(3, text.toUtf8());
    records_->SetFilter(QStringLiteral("id = 3"));
    records_->UpdateBatch(affect);
    EXPECT_EQ(Remark(1), text);
    EXPECT_EQ(Remark(3), text);
    records_->SetFilter(QString());
  }
}

TEST_P(Batches, OneBatchInsertsUpdatesAndDeletes) {
  Change(1, "one");
  StandOn(*records_, 2);
  records_->Delete();
  records_->AddNew();
  (*records_)[QStringLiteral("id")].SetValue(6);
  (*records_)[QStringLiteral("code")].SetValue(QStringLiteral("C-001"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), QStringLiteral("one"));
  EXPECT_EQ(Remark(2), QStringLiteral("<no row>"));
  EXPECT_EQ(Stored(6, QStringLiteral("code")), QStringLiteral("C-001"));
  EXPECT_EQ(Stored(6, QStringLiteral("title")), QStringLiteral("<null>"));
}

TEST_P(Batches, TheKeyOfARowCanBeChanged) {
  StandOn(*records_, 1);
  (*records_)[QStringLiteral("id")].SetValue(11);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), QStringLiteral("<no row>"));
  EXPECT_EQ(Remark(11), QStringLiteral("甲"));
  Change(11, "again");
  records_->UpdateBatch();
  EXPECT_EQ(Remark(11), QStringLiteral("again"));
}

TEST_P(Batches, AnAddedRowCanBeChangedAndDeletedAfterwards) {
  records_->AddNew();
  (*records_)[QStringLiteral("id")].SetValue(6);
  (*records_)[QStringLiteral("code")].SetValue(QStringLiteral("C-001"));
  records_->UpdateBatch();
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("later"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(6), QStringLiteral("later"));
  records_->Delete();
  records_->UpdateBatch();
  EXPECT_EQ(Remark(6), QStringLiteral("<no row>"));
}

TEST_P(Batches, OnlyTheChangedColumnsAreWritten) {
  Change(1, "mine");
  Meanwhile(QStringLiteral("UPDATE files SET title = 'theirs' WHERE id = 1"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), QStringLiteral("mine"));
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("theirs"));
}

TEST_P(Batches, CancelBatchPutsEveryRowBack) {
  Change(1, "one");
  StandOn(*records_, 2);
  records_->Delete();
  records_->AddNew();
  records_->CancelBatch();
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Texts(*records_, QStringLiteral("id")).join(QLatin1Char(' ')), QStringLiteral("1 2 3 4 5"));
  EXPECT_EQ(Texts(*records_, QStringLiteral("remark")).first(), QStringLiteral("甲"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(2), QStringLiteral("<null>"));
}

TEST_P(Batches, CancelBatchOfTheCurrentRowLeavesTheOthersPending) {
  Change(1, "one");
  Change(2, "two");
  records_->CancelBatch(AffectKind::Current);
  EXPECT_TRUE((*records_)[QStringLiteral("remark")].IsNull());
  EXPECT_EQ(records_->PendingCount(), 1);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), QStringLiteral("one"));
  EXPECT_EQ(Remark(2), QStringLiteral("<null>"));
}

TEST_P(Batches, ANumberThatTheDatabaseCountsIsReadBack) {
  Database().Native(OnSqlite() ? QStringLiteral("CREATE TABLE logs (no integer PRIMARY KEY, what varchar(20))")
                               : QStringLiteral("CREATE TABLE logs (no serial PRIMARY KEY, what varchar(20))"));
  Meanwhile(QStringLiteral("INSERT INTO logs (what) VALUES ('first')"));
  const auto logs = Open(QStringLiteral("Select * From logs"));
  logs->AddNew();
  (*logs)[QStringLiteral("what")].SetValue(QStringLiteral("second"));
  logs->UpdateBatch();
  EXPECT_EQ((*logs)[QStringLiteral("no")].Value(), QVariant(2LL));
  (*logs)[QStringLiteral("what")].SetValue(QStringLiteral("changed"));
  logs->UpdateBatch();
  EXPECT_EQ(Database().Value(QStringLiteral("SELECT what FROM logs WHERE no = 2")), QStringLiteral("changed"));
}

TEST_P(Batches, AnOrderedSelectionOfColumnsCanBeWritten) {
  records_ = Open(QStringLiteral("Select remark, id From files Where pages = 25 Order By id Desc"));
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("last"));
  records_->UpdateBatch();
  EXPECT_EQ(Remark(5), QStringLiteral("last"));
}

TEST_P(Batches, AJoinCannotBeWrittenAndItsRowsStay) {
  records_ = Open(QStringLiteral("Select a.id, a.remark From files a, files b Where a.id = b.id Order By a.id"));
  (*records_)[QStringLiteral("remark")].SetValue(QStringLiteral("x"));
  EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ((*records_)[QStringLiteral("remark")].Text(), QStringLiteral("x"));
}

class Keyless : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    Database().Native(QStringLiteral("CREATE TABLE notes (word varchar(10), n integer, day date)"));
    for (const char* row : {"'a', 1, '2002-03-04'", "'b', NULL, NULL", "'same', 3, NULL", "'same', 3, NULL"})
      Database().Native(QStringLiteral("INSERT INTO notes VALUES (%1)").arg(QLatin1String(row)));
    records_ = Open(QStringLiteral("Select * From notes Order By word"));
  }
  QString Count(const char* condition) {
    return Database().Value(QStringLiteral("SELECT count(*) FROM notes WHERE ") + QLatin1String(condition));
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Keyless);

TEST_P(Keyless, ARowIsKnownByAllItsValuesNullIncluded) {
  (*records_)[QStringLiteral("n")].SetValue(11);
  records_->MoveNext();
  (*records_)[QStringLiteral("n")].SetValue(22);
  records_->UpdateBatch();
  EXPECT_EQ(Count("word = 'a' AND n = 11"), QStringLiteral("1"));
  EXPECT_EQ(Count("word = 'b' AND n = 22"), QStringLiteral("1"));
}

TEST_P(Keyless, ARowThatCannotBeToldFromAnotherIsNotWritten) {
  records_->MoveLast();
  (*records_)[QStringLiteral("n")].SetValue(4);
  EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ(Count("word = 'same' AND n = 3"), QStringLiteral("2"));
  EXPECT_EQ((*records_)[QStringLiteral("n")].Value(), QVariant(4LL));
}

TEST_P(Keyless, RowsAreAddedAndDeleted) {
  records_->Delete();
  records_->AddNew();
  (*records_)[QStringLiteral("word")].SetValue(QStringLiteral("new"));
  records_->UpdateBatch();
  EXPECT_EQ(Count("word = 'a'"), QStringLiteral("0"));
  EXPECT_EQ(Count("word = 'new' AND n IS NULL"), QStringLiteral("1"));
}

}  // namespace

}  // namespace folvane::test
