#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Batches : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  void Change(int id, const char* remark) {
    StandOn(*records_, id);
    (*records_)[u"remark"_s].SetValue(QString::fromUtf8(remark));
  }
  QString Remark(int id) { return Stored(id, u"remark"_s); }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Batches);

TEST_P(Batches, NothingIsWrittenBeforeTheBatchIs) {
  Change(1, "one");
  records_->Update();
  EXPECT_EQ(Remark(1), u"甲"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), u"one"_s);
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ((*records_)[u"remark"_s].OriginalValue(), QVariant(u"one"_s));
}

TEST_P(Batches, TheCurrentRowAloneCanBeWritten) {
  Change(1, "one");
  Change(2, "two");
  records_->UpdateBatch(AffectKind::Current);
  EXPECT_EQ(Remark(1), u"甲"_s);
  EXPECT_EQ(Remark(2), u"two"_s);
  EXPECT_EQ(records_->PendingCount(), 1);
}

TEST_P(Batches, AllRowsAreWrittenWhateverTheFilterShows) {
  for (const AffectKind affect : {AffectKind::All, AffectKind::AllChapters}) {
    const QString text = affect == AffectKind::All ? u"all"_s : u"chapters"_s;
    Change(1, text.toUtf8());
    Change(3, text.toUtf8());
    records_->SetFilter(u"id = 3"_s);
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
  (*records_)[u"id"_s].SetValue(6);
  (*records_)[u"code"_s].SetValue(u"C-001"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), u"one"_s);
  EXPECT_EQ(Remark(2), u"<no row>"_s);
  EXPECT_EQ(Stored(6, u"code"_s), u"C-001"_s);
  EXPECT_EQ(Stored(6, u"title"_s), u"<null>"_s);
}

TEST_P(Batches, TheKeyOfARowCanBeChanged) {
  StandOn(*records_, 1);
  (*records_)[u"id"_s].SetValue(11);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), u"<no row>"_s);
  EXPECT_EQ(Remark(11), u"甲"_s);
  Change(11, "again");
  records_->UpdateBatch();
  EXPECT_EQ(Remark(11), u"again"_s);
}

TEST_P(Batches, AnAddedRowCanBeChangedAndDeletedAfterwards) {
  records_->AddNew();
  (*records_)[u"id"_s].SetValue(6);
  (*records_)[u"code"_s].SetValue(u"C-001"_s);
  records_->UpdateBatch();
  (*records_)[u"remark"_s].SetValue(u"later"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(6), u"later"_s);
  records_->Delete();
  records_->UpdateBatch();
  EXPECT_EQ(Remark(6), u"<no row>"_s);
}

TEST_P(Batches, OnlyTheChangedColumnsAreWritten) {
  Change(1, "mine");
  Meanwhile(u"UPDATE files SET title = 'theirs' WHERE id = 1"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), u"mine"_s);
  EXPECT_EQ(Stored(1, u"title"_s), u"theirs"_s);
}

TEST_P(Batches, CancelBatchPutsEveryRowBack) {
  Change(1, "one");
  StandOn(*records_, 2);
  records_->Delete();
  records_->AddNew();
  records_->CancelBatch();
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Texts(*records_, u"id"_s).join(u' '), u"1 2 3 4 5"_s);
  EXPECT_EQ(Texts(*records_, u"remark"_s).first(), u"甲"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(2), u"<null>"_s);
}

TEST_P(Batches, CancelBatchOfTheCurrentRowLeavesTheOthersPending) {
  Change(1, "one");
  Change(2, "two");
  records_->CancelBatch(AffectKind::Current);
  EXPECT_TRUE((*records_)[u"remark"_s].IsNull());
  EXPECT_EQ(records_->PendingCount(), 1);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(1), u"one"_s);
  EXPECT_EQ(Remark(2), u"<null>"_s);
}

TEST_P(Batches, ANumberThatTheDatabaseCountsIsReadBack) {
  Database().Native(OnSqlite() ? u"CREATE TABLE logs (no integer PRIMARY KEY, what varchar(20))"_s
                               : u"CREATE TABLE logs (no serial PRIMARY KEY, what varchar(20))"_s);
  Meanwhile(u"INSERT INTO logs (what) VALUES ('first')"_s);
  const auto logs = Open(u"Select * From logs"_s);
  logs->AddNew();
  (*logs)[u"what"_s].SetValue(u"second"_s);
  logs->UpdateBatch();
  EXPECT_EQ((*logs)[u"no"_s].Value(), QVariant(2LL));
  (*logs)[u"what"_s].SetValue(u"changed"_s);
  logs->UpdateBatch();
  EXPECT_EQ(Database().Value(u"SELECT what FROM logs WHERE no = 2"_s), u"changed"_s);
}

TEST_P(Batches, AnOrderedSelectionOfColumnsCanBeWritten) {
  records_ = Open(u"Select remark, id From files Where pages = 25 Order By id Desc"_s);
  (*records_)[u"remark"_s].SetValue(u"last"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Remark(5), u"last"_s);
}

TEST_P(Batches, AJoinCannotBeWrittenAndItsRowsStay) {
  records_ = Open(u"Select a.id, a.remark From files a, files b Where a.id = b.id Order By a.id"_s);
  (*records_)[u"remark"_s].SetValue(u"x"_s);
  EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ((*records_)[u"remark"_s].Text(), u"x"_s);
}

class Keyless : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    Database().Native(u"CREATE TABLE notes (word varchar(10), n integer, day date)"_s);
    for (const char* row : {"'a', 1, '2002-03-04'", "'b', NULL, NULL", "'same', 3, NULL", "'same', 3, NULL"})
      Database().Native(u"INSERT INTO notes VALUES (%1)"_s.arg(QLatin1String(row)));
    records_ = Open(u"Select * From notes Order By word"_s);
  }
  QString Count(const char* condition) {
    return Database().Value(u"SELECT count(*) FROM notes WHERE "_s + QLatin1String(condition));
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Keyless);

TEST_P(Keyless, ARowIsKnownByAllItsValuesNullIncluded) {
  (*records_)[u"n"_s].SetValue(11);
  records_->MoveNext();
  (*records_)[u"n"_s].SetValue(22);
  records_->UpdateBatch();
  EXPECT_EQ(Count("word = 'a' AND n = 11"), u"1"_s);
  EXPECT_EQ(Count("word = 'b' AND n = 22"), u"1"_s);
}

TEST_P(Keyless, ARowIsToldFromOthersByItsFirstValueAlone) {
  Database().Native(u"INSERT INTO notes VALUES ('other', 3, NULL)"_s);
  records_->Requery();
  records_->Find(u"word = 'other'"_s);
  (*records_)[u"n"_s].SetValue(4);
  records_->UpdateBatch();
  EXPECT_EQ(Count("word = 'other' AND n = 4"), u"1"_s);
  EXPECT_EQ(Count("word = 'same' AND n = 3"), u"2"_s);
}

TEST_P(Keyless, ARowThatCannotBeToldFromAnotherIsNotWritten) {
  records_->MoveLast();
  (*records_)[u"n"_s].SetValue(4);
  EXPECT_EQ(FailureOf([&] { records_->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ(Count("word = 'same' AND n = 3"), u"2"_s);
  EXPECT_EQ((*records_)[u"n"_s].Value(), QVariant(4LL));
}

TEST_P(Keyless, RowsAreAddedAndDeleted) {
  records_->Delete();
  records_->AddNew();
  (*records_)[u"word"_s].SetValue(u"new"_s);
  records_->UpdateBatch();
  EXPECT_EQ(Count("word = 'a'"), u"0"_s);
  EXPECT_EQ(Count("word = 'new' AND n IS NULL"), u"1"_s);
}

}  // namespace

}  // namespace folvane::test
