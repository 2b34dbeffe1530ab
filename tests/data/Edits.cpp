#include <QDate>
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

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
  Set("title", u"改"_s);
  EXPECT_EQ(records_->EditMode(), EditModeKind::InProgress);
  records_->Update();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Value("title"), QVariant(u"改"_s));
  EXPECT_EQ(Original("title"), QVariant(u"关于档案的通知"_s));
  EXPECT_EQ(Stored(1, u"title"_s), u"关于档案的通知"_s);
}

TEST_P(Edits, CancelUpdatePutsBackWhatStoodBeforeTheEdit) {
  Set("title", u"once"_s);
  records_->Update();
  Set("title", u"twice"_s);
  Set("pages", {});
  records_->CancelUpdate();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  EXPECT_EQ(Value("title"), QVariant(u"once"_s));
  EXPECT_EQ(Value("pages"), QVariant(10LL));
}

TEST_P(Edits, MovingOffAnEditedRowKeepsItsChanges) {
  Set("title", u"改"_s);
  records_->MoveNext();
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
  records_->MoveFirst();
  EXPECT_EQ(Value("title"), QVariant(u"改"_s));
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
  records_->SetFilter(u"pages = 25"_s);
  records_->AddNew();
  Set("id", 6);
  Set("code", u"C-001"_s);
  records_->Update();
  EXPECT_EQ(Value("code"), QVariant(u"C-001"_s));
  records_->UpdateBatch();
  EXPECT_EQ(Stored(6, u"code"_s), u"C-001"_s);
}

TEST_P(Edits, TextGivenToANumberOrADateIsTurnedIntoOne) {
  Set("pages", u" 12 "_s);
  EXPECT_EQ(Value("pages"), QVariant(12LL));
  Set("pages", QString());
  EXPECT_FALSE(Value("pages").isValid());
  Set("filed", u"2003-5-6"_s);
  EXPECT_EQ(Value("filed"), QVariant(QDate(2003, 5, 6)));
  EXPECT_EQ((*records_)[u"filed"_s].Text(), u"2003-05-06"_s);
  Set("title", 12);
  EXPECT_EQ(Value("title"), QVariant(u"12"_s));
}

TEST_P(Edits, AReadOnlyRecordSetRefusesChanges) {
  records_ = Open(u"Select * From files Order By id"_s, LockType::ReadOnly);
  EXPECT_EQ(FailureOf([&] { Set("title", u"改"_s); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records_->AddNew(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(FailureOf([&] { records_->Delete(); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(Value("title"), QVariant(u"关于档案的通知"_s));
}

TEST_P(Edits, AnOptimisticRecordSetWritesAtUpdate) {
  records_ = Open(u"Select * From files Order By id"_s, LockType::Optimistic);
  Set("title", u"改"_s);
  EXPECT_EQ(Stored(1, u"title"_s), u"关于档案的通知"_s);
  records_->Update();
  EXPECT_EQ(Stored(1, u"title"_s), u"改"_s);
  EXPECT_EQ(records_->PendingCount(), 0);
}

TEST_P(Edits, AnOptimisticRecordSetWritesWhenTheRowIsLeftAndStaysWhenItCannot) {
  records_ = Open(u"Select * From files Order By id"_s, LockType::Pessimistic);
  Set("title", u"改"_s);
  records_->MoveNext();
  EXPECT_EQ(Stored(1, u"title"_s), u"改"_s);
  Set("code", {});
  EXPECT_EQ(FailureOf([&] { records_->MoveNext(); }).Kind(), DataErrorKind::Constraint);
  EXPECT_EQ(records_->AbsolutePosition(), 2);
  EXPECT_EQ(records_->EditMode(), EditModeKind::InProgress);
  records_->CancelUpdate();
  records_->MoveNext();
  EXPECT_EQ(records_->AbsolutePosition(), 3);
}

TEST_P(Edits, AnOptimisticRecordSetDeletesAtOnce) {
  records_ = Open(u"Select * From files Order By id"_s, LockType::Optimistic);
  records_->Delete();
  EXPECT_EQ(Stored(1, u"title"_s), u"<no row>"_s);
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
  Set("code", u"C-001"_s);
  records_->Update();
  records_->Delete();
  EXPECT_EQ(records_->PendingCount(), 0);
  records_->UpdateBatch();
  EXPECT_EQ(Open()->RecordCount(), 5);
}

}  // namespace

}  // namespace folvane::test
