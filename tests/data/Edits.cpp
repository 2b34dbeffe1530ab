#include <QDate>
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Edits : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  void Set(const char* field, const QVariant& value) { (*records_)[QLatin1String(field)].SetValue(value); }
  QVariant Value(const char* field) { return (*records_)[QLatin1String(field)].Value(); }
  QVariant Original(const char* field) { return (*records_)[QLatin1String(field)].OriginalValue(); }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Edits);

TEST_P(Edits, ARowThatIsOnlyLookedAtIsNotEdited) {
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  Value("title");
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Edits, AValuePutIntoAFieldBeginsAnEditThatUpdateEnds) {
  Set("title", QStringLiteral("改"));
  EXPECT_EQ(records_->EditMode(), EditModeKind::InProgress);
  records_->Update();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Value("title"), QVariant(QStringLiteral("改")));
  EXPECT_EQ(Original("title"), QVariant(QStringLiteral("关于档案的通知")));
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("关于档案的通知"));
}

TEST_P(Edits, CancelUpdatePutsBackWhatStoodBeforeTheEdit) {
  Set("title", QStringLiteral("once"));
  records_->Update();
  Set("title", QStringLiteral("twice"));
  Set("pages", {});
  records_->CancelUpdate();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Value("title"), QVariant(QStringLiteral("once")));
  EXPECT_EQ(Value("pages"), QVariant(10LL));
}

TEST_P(Edits, MovingOffAnEditedRowKeepsItsChanges) {
  Set("title", QStringLiteral("改"));
  records_->MoveNext();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  records_->MoveFirst();
  EXPECT_EQ(Value("title"), QVariant(QStringLiteral("改")));
  EXPECT_EQ(records_->PendingCount(), 1);
}

TEST_P(Edits, ANewRowStandsAtTheEndAndIsEmpty) {
  records_->AddNew();
  EXPECT_EQ(records_->EditMode(), EditModeKind::Add);
  EXPECT_EQ(records_->RecordCount(), 6);
  EXPECT_EQ(records_->AbsolutePosition(), 6);
  EXPECT_FALSE(Value("title").isValid());
  EXPECT_FALSE(Original("title").isValid());
}

TEST_P(Edits, CancelUpdateOfANewRowTakesItAwayAgain) {
  records_->AddNew();
  Set("id", 6);
  records_->CancelUpdate();
  EXPECT_EQ(records_->RecordCount(), 5);
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(records_->PendingCount(), 0);
  records_->UpdateBatch();
  EXPECT_EQ(Open()->RecordCount(), 5);
}

TEST_P(Edits, ANewRowIsShownUnderAFilterThatItDoesNotMeet) {
  records_->SetFilter(QStringLiteral("pages = 25"));
  records_->AddNew();
  Set("id", 6);
  Set("code", QStringLiteral("C-001"));
  records_->Update();
  EXPECT_EQ(Value("code"), QVariant(QStringLiteral("C-001")));
  records_->UpdateBatch();
  EXPECT_EQ(Stored(6, QStringLiteral("code")), QStringLiteral("C-001"));
}

TEST_P(Edits, TextGivenToANumberOrADateIsTurnedIntoOne) {
  Set("pages", QStringLiteral(" 12 "));
  EXPECT_EQ(Value("pages"), QVariant(12LL));
  Set("pages", QString());
  EXPECT_FALSE(Value("pages").isValid());
  Set("filed", QStringLiteral("2003-5-6"));
  EXPECT_EQ(Value("filed"), QVariant(QDate(2003, 5, 6)));
  EXPECT_EQ((*records_)[QStringLiteral("filed")].Text(), QStringLiteral("2003-05-06"));
  Set("title", 12);
  EXPECT_EQ(Value("title"), QVariant(QStringLiteral("12")));
}

TEST_P(Edits, AReadOnlyRecordSetRefusesChanges) {
  records_ = Open(QStringLiteral("Select * From files Order By id"), LockType::ReadOnly);
  EXPECT_EQ(FailureOf([&] { Set("title", QStringLiteral("改")); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records_->AddNew(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records_->Delete(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(Value("title"), QVariant(QStringLiteral("关于档案的通知")));
}

TEST_P(Edits, AnOptimisticRecordSetWritesAtUpdate) {
  records_ = Open(QStringLiteral("Select * From files Order By id"), LockType::Optimistic);
  Set("title", QStringLiteral("改"));
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("关于档案的通知"));
  records_->Update();
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("改"));
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Edits, AnOptimisticRecordSetWritesWhenTheRowIsLeftAndStaysWhenItCannot) {
  records_ = Open(QStringLiteral("Select * From files Order By id"), LockType::Pessimistic);
  Set("title", QStringLiteral("改"));
  records_->MoveNext();
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("改"));
  Set("code", {});
  EXPECT_EQ(FailureOf([&] { records_->MoveNext(); }).Kind(), DataErrorKind::Constraint);
  EXPECT_EQ(records_->AbsolutePosition(), 2);
  EXPECT_EQ(records_->EditMode(), EditModeKind::InProgress);
  records_->CancelUpdate();
  records_->MoveNext();
  EXPECT_EQ(records_->AbsolutePosition(), 3);
}

TEST_P(Edits, AnOptimisticRecordSetDeletesAtOnce) {
  records_ = Open(QStringLiteral("Select * From files Order By id"), LockType::Optimistic);
  records_->Delete();
  EXPECT_EQ(Stored(1, QStringLiteral("title")), QStringLiteral("<no row>"));
}

TEST_P(Edits, ADeletedRowLeavesAHoleFromWhichNextIsTheRowThatFollowed) {
  StandOn(*records_, 2);
  records_->Delete();
  EXPECT_EQ(records_->EditMode(), EditModeKind::Delete);
  EXPECT_EQ(records_->AbsolutePosition(), -1);
  EXPECT_EQ(FailureOf([&] { Value("title"); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records_->Delete(); }).Kind(), DataErrorKind::Usage);
  records_->MoveNext();
  EXPECT_EQ(Value("id"), QVariant(3LL));
  EXPECT_EQ(records_->AbsolutePosition(), 2);
}

TEST_P(Edits, FromAHolePreviousIsTheRowBeforeIt) {
  StandOn(*records_, 2);
  records_->Delete();
  records_->MovePrevious();
  EXPECT_EQ(Value("id"), QVariant(1LL));
}

TEST_P(Edits, FromTheHoleOfTheLastRowNextIsTheEnd) {
  records_->MoveLast();
  records_->Delete();
  records_->MoveNext();
  EXPECT_TRUE(records_->EOF_());
  EXPECT_EQ(records_->RecordCount(), 4);
}

TEST_P(Edits, AllRowsCanBeDeletedOneAfterTheOther) {
  for (; !records_->EOF_(); records_->MoveNext()) records_->Delete();
  EXPECT_EQ(records_->RecordCount(), 0);
  EXPECT_EQ(records_->PendingCount(), 5);
  records_->UpdateBatch();
  EXPECT_EQ(Open()->RecordCount(), 0);
}

TEST_P(Edits, DeletingANewRowLeavesNothingToWrite) {
  records_->AddNew();
  Set("id", 6);
  Set("code", QStringLiteral("C-001"));
  records_->Update();
  records_->Delete();
  EXPECT_EQ(records_->PendingCount(), 0);
  records_->UpdateBatch();
  EXPECT_EQ(Open()->RecordCount(), 5);
}

}  // namespace

}  // namespace folvane::test
