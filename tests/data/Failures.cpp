#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Failures : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    Open();  // as in life, the connection has been at work before something happens to it
  }

  /// Has another user hold the table of files, and this user not wait for long.
  void HoldFiles() {
    if (OnSqlite()) return Meanwhile(u"BEGIN EXCLUSIVE"_s);
    Meanwhile(u"BEGIN"_s);
    Meanwhile(u"LOCK TABLE files IN ACCESS EXCLUSIVE MODE"_s);
    DatabaseSession::Of(*Connected()).NativeDriver().Execute({"SET lock_timeout = '100ms'", {}});
  }
  void LetFilesGo() { Meanwhile(u"ROLLBACK"_s); }

  DataErrorKind KindOf(const std::function<void()>& work) { return FailureOf(work).Kind(); }
};
FOLVANE_ON_EACH_DATABASE(Failures);

TEST_P(Failures, ATableThatAnotherHoldsIsLocked) {
  HoldFiles();
  const DataError error = FailureOf([&] { Connected()->Execute(u"Delete From files Where id = 1"_s); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Locked);
  EXPECT_TRUE(error.Message().contains(u"lock"_s)) << error.what();
  LetFilesGo();
  EXPECT_EQ(Connected()->Execute(u"Delete From files Where id = 1"_s), 1);
}

TEST_P(Failures, ARecordSetThatMetALockKeepsItsRowAndWritesItLater) {
  const auto records = Open();
  (*records)[u"remark"_s].SetValue(u"mine"_s);
  HoldFiles();
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Locked);
  EXPECT_EQ((*records)[u"remark"_s].Text(), u"mine"_s);
  EXPECT_EQ(records->PendingCount(), 1);
  LetFilesGo();
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, u"remark"_s), u"mine"_s);
}

TEST_P(Failures, ATransactionThatMetALockCanBeRolledBack) {
  HoldFiles();
  const DataError error = FailureOf([&] {
    Transaction transaction(*Connected());
    Connected()->Execute(u"Delete From files"_s);
    transaction.Commit();
  });
  EXPECT_EQ(error.Kind(), DataErrorKind::Locked);
  EXPECT_FALSE(Connected()->InTransaction());
  LetFilesGo();
  EXPECT_EQ(Open()->RecordCount(), 5);
}

TEST_P(Failures, AValueThatIsTooLongForItsColumnIsRefusedWithTheRowKept) {
  const auto records = Open();
  (*records)[u"code"_s].SetValue(QString(21, u'x'));
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::TooLong);
  EXPECT_EQ((*records)[u"code"_s].Text().size(), 21);
  (*records)[u"code"_s].SetValue(QString(20, u'x'));
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, u"code"_s), QString(20, u'x'));
}

TEST_P(Failures, ADoubleKeyIsRefusedWithTheNewRowKept) {
  const auto records = Open();
  records->AddNew();
  (*records)[u"id"_s].SetValue(1);
  (*records)[u"code"_s].SetValue(u"C-001"_s);
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Constraint);
  EXPECT_EQ(records->RecordCount(), 6);
  EXPECT_EQ((*records)[u"code"_s].Text(), u"C-001"_s);
  EXPECT_EQ(records->EditMode(), EditModeKind::Add);
  (*records)[u"id"_s].SetValue(6);
  records->UpdateBatch();
  EXPECT_EQ(Stored(6, u"code"_s), u"C-001"_s);
}

TEST_P(Failures, ADoubleKeyIsToldWithItsColumnAndItsValue) {
  const auto records = Open();
  records->AddNew();
  (*records)[u"id"_s].SetValue(1);
  (*records)[u"code"_s].SetValue(u"C-001"_s);
  const DataError error = FailureOf([&] { records->UpdateBatch(); });
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), u"id"_s);
  EXPECT_EQ(error.Message(), u"字段“id”的值“1”已经存在。"_s);
}

TEST_P(Failures, ADoubleValueOfAUniqueIndexIsToldWithItsColumn) {
  Meanwhile(u"CREATE UNIQUE INDEX one_title ON files (title)"_s);
  const QString statement = u"Update files Set title = '会议纪要' Where id = 1"_s;
  const DataError error = FailureOf([&] { Connected()->Execute(statement); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Constraint);
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), u"title"_s);
  EXPECT_EQ(error.Message(), u"字段“title”的值已经存在。"_s);
  EXPECT_EQ(error.Statement(), statement);
}

TEST_P(Failures, ADoubleKeyOfSeveralColumnsNamesThemAll) {
  Meanwhile(u"CREATE UNIQUE INDEX one_day ON files (filed, pages)"_s);
  const DataError error =
      FailureOf([&] { Connected()->Execute(u"Update files Set filed = '2002-03-04', pages = 10 Where id = 2"_s); });
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), QString());
  EXPECT_EQ(error.Message(), u"已有字段“filed”、“pages”的值都相同的记录。"_s);
}

TEST_P(Failures, AMissingValueIsNoDoubleKey) {
  const DataError error = FailureOf([&] { Connected()->Execute(u"Update files Set code = Null Where id = 1"_s); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Constraint);
  EXPECT_FALSE(error.IsDuplicate());
}

TEST_P(Failures, ATextThatIsNoNumberIsRefusedByTheField) {
  const auto records = Open();
  EXPECT_EQ(KindOf([&] { (*records)[u"pages"_s].SetValue(u"ten"_s); }), DataErrorKind::Conversion);
  EXPECT_EQ((*records)[u"pages"_s].Value(), QVariant(10LL));
  EXPECT_EQ(KindOf([&] { (*records)[u"filed"_s].SetValue(u"2002-13-40"_s); }), DataErrorKind::Conversion);
}

TEST_P(Failures, ALostDatabaseIsToldAsLost) {
  TakeDatabaseAway();
  const DataError error = FailureOf([&] { Connected()->Execute(u"Delete From files Where id = 1"_s); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  EXPECT_FALSE(error.Message().isEmpty());
  // And again, when the driver knows already.
  EXPECT_EQ(KindOf([&] { Open(); }), DataErrorKind::Lost);
}

TEST_P(Failures, ARecordSetWhoseDatabaseIsLostKeepsItsRowsAndItsPendingRow) {
  const auto records = Open();
  StandOn(*records, 2);
  (*records)[u"remark"_s].SetValue(u"mine"_s);
  TakeDatabaseAway();
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Lost);
  EXPECT_EQ((*records)[u"remark"_s].Text(), u"mine"_s);
  EXPECT_EQ(records->PendingCount(), 1);
  EXPECT_EQ(records->RecordCount(), 5);
  EXPECT_EQ(Texts(*records).first(), u"A-001"_s);
  EXPECT_EQ(KindOf([&] { records->Requery(); }), DataErrorKind::Lost);
  EXPECT_EQ(records->RecordCount(), 5);
}

}  // namespace

}  // namespace folvane::test
