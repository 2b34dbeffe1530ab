#include <QFile>
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

class Failures : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    Open();  // as in life, the connection has been at work before something happens to it
  }

  /// Has another user hold the table of files, and this user not wait for long.
  void HoldFiles() {
    if (OnSqlite()) return Meanwhile(QStringLiteral("BEGIN EXCLUSIVE"));
    Meanwhile(QStringLiteral("BEGIN"));
    Meanwhile(QStringLiteral("LOCK TABLE files IN ACCESS EXCLUSIVE MODE"));
    Connected()->NativeDriver().Execute({"SET lock_timeout = '100ms'", {}});
  }
  void LetFilesGo() { Meanwhile(QStringLiteral("ROLLBACK")); }

  /// The server ends the session, or the file turns into something that is no database.
  void TakeDatabaseAway() {
    if (!OnSqlite()) {
      const NativeResult session = QueryNative(*Connected(), "SELECT pg_backend_pid()");
      Meanwhile(QStringLiteral("SELECT pg_terminate_backend(%1, 5000)").arg(session.rows[0][0].toLongLong()));
      return;
    }
    QFile file(Database().Rows(QStringLiteral("PRAGMA database_list"))[0][2]);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(QByteArray(int(file.size()), 'x'));
  }
  DataErrorKind KindOf(const std::function<void()>& work) { return FailureOf(work).Kind(); }
};
FOLVANE_ON_EACH_DATABASE(Failures);

TEST_P(Failures, ATableThatAnotherHoldsIsLocked) {
  HoldFiles();
  const DataError error = FailureOf([&] { Connected()->Execute(QStringLiteral("Delete From files Where id = 1")); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Locked);
  EXPECT_TRUE(error.Message().contains(QStringLiteral("lock"))) << error.what();
  LetFilesGo();
  EXPECT_EQ(Connected()->Execute(QStringLiteral("Delete From files Where id = 1")), 1);
}

TEST_P(Failures, ARecordSetThatMetALockKeepsItsRowAndWritesItLater) {
  const auto records = Open();
  (*records)[QStringLiteral("remark")].SetValue(QStringLiteral("mine"));
  HoldFiles();
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Locked);
  EXPECT_EQ((*records)[QStringLiteral("remark")].Text(), QStringLiteral("mine"));
  EXPECT_EQ(records->PendingCount(), 1);
  LetFilesGo();
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("remark")), QStringLiteral("mine"));
}

TEST_P(Failures, ATransactionThatMetALockCanBeRolledBack) {
  HoldFiles();
  const DataError error = FailureOf([&] {
    Transaction transaction(*Connected());
    Connected()->Execute(QStringLiteral("Delete From files"));
    transaction.Commit();
  });
  EXPECT_EQ(error.Kind(), DataErrorKind::Locked);
  EXPECT_FALSE(Connected()->InTransaction());
  LetFilesGo();
  EXPECT_EQ(Open()->RecordCount(), 5);
}

TEST_P(Failures, AValueThatIsTooLongForItsColumnIsRefusedWithTheRowKept) {
  const auto records = Open();
  (*records)[QStringLiteral("code")].SetValue(QString(21, QLatin1Char('x')));
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::TooLong);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text().size(), 21);
  (*records)[QStringLiteral("code")].SetValue(QString(20, QLatin1Char('x')));
  records->UpdateBatch();
  EXPECT_EQ(Stored(1, QStringLiteral("code")), QString(20, QLatin1Char('x')));
}

TEST_P(Failures, ADoubleKeyIsRefusedWithTheNewRowKept) {
  const auto records = Open();
  records->AddNew();
  (*records)[QStringLiteral("id")].SetValue(1);
  (*records)[QStringLiteral("code")].SetValue(QStringLiteral("C-001"));
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Constraint);
  EXPECT_EQ(records->RecordCount(), 6);
  EXPECT_EQ((*records)[QStringLiteral("code")].Text(), QStringLiteral("C-001"));
  EXPECT_EQ(records->EditMode(), EditModeKind::Add);
  (*records)[QStringLiteral("id")].SetValue(6);
  records->UpdateBatch();
  EXPECT_EQ(Stored(6, QStringLiteral("code")), QStringLiteral("C-001"));
}

TEST_P(Failures, ADoubleKeyIsToldWithItsColumnAndItsValue) {
  const auto records = Open();
  records->AddNew();
  (*records)[QStringLiteral("id")].SetValue(1);
  (*records)[QStringLiteral("code")].SetValue(QStringLiteral("C-001"));
  const DataError error = FailureOf([&] { records->UpdateBatch(); });
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), QStringLiteral("id"));
  EXPECT_EQ(error.Message(), QStringLiteral("字段“id”的值“1”已经存在。"));
}

TEST_P(Failures, ADoubleValueOfAUniqueIndexIsToldWithItsColumn) {
  Meanwhile(QStringLiteral("CREATE UNIQUE INDEX one_title ON files (title)"));
  const QString statement = QStringLiteral("Update files Set title = '会议纪要' Where id = 1");
  const DataError error = FailureOf([&] { Connected()->Execute(statement); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Constraint);
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), QStringLiteral("title"));
  EXPECT_EQ(error.Message(), QStringLiteral("字段“title”的值已经存在。"));
  EXPECT_EQ(error.Statement(), statement);
}

TEST_P(Failures, ADoubleKeyOfSeveralColumnsNamesThemAll) {
  Meanwhile(QStringLiteral("CREATE UNIQUE INDEX one_day ON files (filed, pages)"));
  const DataError error = FailureOf(
      [&] { Connected()->Execute(QStringLiteral("Update files Set filed = '2002-03-04', pages = 10 Where id = 2")); });
  EXPECT_TRUE(error.IsDuplicate());
  EXPECT_EQ(error.Column(), QString());
  EXPECT_EQ(error.Message(), QStringLiteral("已有字段“filed”、“pages”的值都相同的记录。"));
}

TEST_P(Failures, AMissingValueIsNoDoubleKey) {
  const DataError error =
      FailureOf([&] { Connected()->Execute(QStringLiteral("Update files Set code = Null Where id = 1")); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Constraint);
  EXPECT_FALSE(error.IsDuplicate());
}

TEST_P(Failures, ATextThatIsNoNumberIsRefusedByTheField) {
  const auto records = Open();
  EXPECT_EQ(KindOf([&] { (*records)[QStringLiteral("pages")].SetValue(QStringLiteral("ten")); }),
            DataErrorKind::Conversion);
  EXPECT_EQ((*records)[QStringLiteral("pages")].Value(), QVariant(10LL));
  EXPECT_EQ(KindOf([&] { (*records)[QStringLiteral("filed")].SetValue(QStringLiteral("2002-13-40")); }),
            DataErrorKind::Conversion);
}

TEST_P(Failures, ALostDatabaseIsToldAsLost) {
  TakeDatabaseAway();
  const DataError error = FailureOf([&] { Connected()->Execute(QStringLiteral("Delete From files Where id = 1")); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Lost);
  EXPECT_FALSE(error.Message().isEmpty());
  // And again, when the driver knows already.
  EXPECT_EQ(KindOf([&] { Open(); }), DataErrorKind::Lost);
}

TEST_P(Failures, ARecordSetWhoseDatabaseIsLostKeepsItsRowsAndItsPendingRow) {
  const auto records = Open();
  StandOn(*records, 2);
  (*records)[QStringLiteral("remark")].SetValue(QStringLiteral("mine"));
  TakeDatabaseAway();
  EXPECT_EQ(KindOf([&] { records->UpdateBatch(); }), DataErrorKind::Lost);
  EXPECT_EQ((*records)[QStringLiteral("remark")].Text(), QStringLiteral("mine"));
  EXPECT_EQ(records->PendingCount(), 1);
  EXPECT_EQ(records->RecordCount(), 5);
  EXPECT_EQ(Texts(*records).first(), QStringLiteral("A-001"));
  EXPECT_EQ(KindOf([&] { records->Requery(); }), DataErrorKind::Lost);
  EXPECT_EQ(records->RecordCount(), 5);
}

}  // namespace

}  // namespace folvane::test
