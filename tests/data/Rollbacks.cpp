#include <gtest/gtest.h>
#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "data/DataSuite.h"
#include "data/OneTransaction.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

// A connection's own driver, but for the next rollbacks, which fail.
class UnwillingDriver final : public Driver {
 public:
  UnwillingDriver(Driver& inner, int& refusals) : inner_(inner), refusals_(refusals) {}
  DialectKind Dialect() const override { return inner_.Dialect(); }
  qint64 Execute(const NativeStatement& statement) override { return inner_.Execute(statement); }
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override {
    inner_.Query(statement, columns, rows);
  }
  std::optional<TableInfo> Describe(const QString& table) override { return inner_.Describe(table); }
  QByteArray PinyinCollation() override { return inner_.PinyinCollation(); }
  void Begin() override { inner_.Begin(); }
  void Commit() override { inner_.Commit(); }
  void Rollback() override {
    if (refusals_ > 0) {
      --refusals_;
      throw DataError(DataErrorKind::Other, u"interrupted"_s, {}, u"9"_s);
    }
    inner_.Rollback();
  }
  bool InTransaction() const override { return inner_.InTransaction(); }

 private:
  Driver& inner_;
  int& refusals_;
};

class Rollbacks : public DataSuite {
 protected:
  static constexpr int kEndless = 1000000;

  void SetUp() override {
    DataSuite::SetUp();
    connection_ =
        MakeConnection(std::make_unique<UnwillingDriver>(DatabaseSession::Of(*Connected()).NativeDriver(), refusals_));
  }
  void Mark(int id) { connection_->Execute(u"Update files Set remark = 'marked' Where id = %1"_s.arg(id)); }
  /// What another user sees.
  QString Marked() { return Database().Value(u"SELECT count(*) FROM files WHERE remark = 'marked'"_s); }

  int refusals_ = 0;
  std::shared_ptr<Connection> connection_;
};
FOLVANE_ON_EACH_DATABASE(Rollbacks);

TEST_P(Rollbacks, AnInterruptedOneIsTriedAgain) {
  connection_->BeginTrans();
  Mark(1);
  refusals_ = 3;
  connection_->RollbackTrans();
  Mark(2);
  EXPECT_EQ(Marked(), u"1"_s);
}

TEST_P(Rollbacks, OneThatCannotBeIsToldWithItsReason) {
  connection_->BeginTrans();
  refusals_ = kEndless;
  const DataError error = FailureOf([&] { connection_->RollbackTrans(); });
  EXPECT_EQ(error.Message(), u"未完成的修改还没有撤销，撤销之前不能再使用数据库：interrupted"_s);
  EXPECT_EQ(error.NativeCode(), u"9"_s);
}

TEST_P(Rollbacks, NothingIsWrittenWhileOneIsDue) {
  Recordset records;
  records.Open(u"Select * From files Order By id"_s, connection_);
  connection_->BeginTrans();
  Mark(1);
  refusals_ = kEndless;
  FailureOf([&] { connection_->RollbackTrans(); });
  records[u"remark"_s].SetValue(u"marked"_s);
  for (const auto& write : std::vector<std::function<void()>>{[&] { Mark(2); }, [&] { records.UpdateBatch(); },
                                                              [&] { connection_->BeginTrans(); }})
    EXPECT_TRUE(FailureOf(write).Message().startsWith(u"未完成的修改还没有撤销"_s));
  EXPECT_EQ(Marked(), u"0"_s);
  EXPECT_EQ(records.PendingCount(), 1);
  refusals_ = 0;
}

TEST_P(Rollbacks, OneThatWasDueIsMadeUpForByTheNextStatement) {
  {
    Transaction transaction(*connection_);
    Mark(1);
    Mark(2);
    refusals_ = kEndless;
  }
  refusals_ = 2;
  Mark(3);
  EXPECT_EQ(Marked(), u"1"_s);
  EXPECT_EQ(Stored(3, u"remark"_s), u"marked"_s);
}

// A handle of SQLite whose user interrupts statements.
class InterruptedSqlite : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    const QString file = Database().Rows(u"PRAGMA database_list"_s)[0][2];
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &handle_), SQLITE_OK);
    connection_ = AdoptSqlite(handle_);
  }
  void TearDown() override {
    connection_.reset();
    EXPECT_EQ(sqlite3_close(handle_), SQLITE_OK);
  }
  /// Interrupts whatever runs, so many times.
  void Interrupt(int times) {
    interruptions_ = times;
    sqlite3_progress_handler(
        handle_, 1, [](void* self) { return static_cast<InterruptedSqlite*>(self)->interruptions_-- > 0 ? 1 : 0; },
        this);
  }
  void Mark(int id) { connection_->Execute(u"Update files Set remark = 'marked' Where id = %1"_s.arg(id)); }

  sqlite3* handle_ = nullptr;
  int interruptions_ = 0;
  std::shared_ptr<Connection> connection_;
};
INSTANTIATE_TEST_SUITE_P(Only, InterruptedSqlite, testing::Values("SQLite"),
                         [](const testing::TestParamInfo<std::string>& database) { return database.param; });

TEST_P(InterruptedSqlite, DoesNothingOfWhatStandsTogetherWhereNoTransactionCanBegin) {
  sqlite3_set_authorizer(
      handle_,
      [](void*, int action, const char*, const char*, const char*, const char*) {
        return action == SQLITE_TRANSACTION ? SQLITE_DENY : SQLITE_OK;
      },
      nullptr);
  EXPECT_THROW(InOneTransaction(*connection_, [&] { Mark(1); }), DataError);
  sqlite3_set_authorizer(handle_, nullptr, nullptr);
  EXPECT_EQ(Database().Value(u"SELECT count(*) FROM files WHERE remark = 'marked'"_s), u"0"_s);
}

TEST_P(InterruptedSqlite, TakesPartInATransactionThatItsUserHasBegun) {
  sqlite3_exec(handle_, "BEGIN", nullptr, nullptr, nullptr);
  EXPECT_EQ(FailureOf([&] { connection_->BeginTrans(); }).Kind(), DataErrorKind::Usage);
  InOneTransaction(*connection_, [&] { Mark(1); });
  sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
  EXPECT_EQ(Database().Value(u"SELECT count(*) FROM files WHERE remark = 'marked'"_s), u"0"_s);
}

TEST_P(InterruptedSqlite, LeavesTheTransactionAllTheSame) {
  connection_->BeginTrans();
  Mark(1);
  Interrupt(3);
  connection_->RollbackTrans();
  EXPECT_NE(sqlite3_get_autocommit(handle_), 0);
  Mark(2);
  EXPECT_EQ(Stored(1, u"remark"_s), u"甲"_s);
  EXPECT_EQ(Stored(2, u"remark"_s), u"marked"_s);
}

TEST_P(InterruptedSqlite, RefusesToWriteOnInATransactionThatItCannotLeave) {
  connection_->BeginTrans();
  Mark(1);
  Interrupt(1000);
  FailureOf([&] { connection_->RollbackTrans(); });
  EXPECT_EQ(sqlite3_get_autocommit(handle_), 0);
  FailureOf([&] { Mark(2); });
  Interrupt(0);
  Mark(3);
  EXPECT_NE(sqlite3_get_autocommit(handle_), 0);
  EXPECT_EQ(Stored(1, u"remark"_s), u"甲"_s);
  EXPECT_EQ(Stored(3, u"remark"_s), u"marked"_s);
}

// SQLite ends the transaction by itself when a write in it is interrupted.
TEST_P(InterruptedSqlite, RefusesToWriteOnAfterATransactionThatTheDatabaseHasEnded) {
  connection_->BeginTrans();
  Mark(1);
  Interrupt(1);
  FailureOf([&] { Mark(2); });
  Interrupt(0);
  ASSERT_NE(sqlite3_get_autocommit(handle_), 0);
  EXPECT_EQ(FailureOf([&] { Mark(3); }).Message(), u"数据库已撤销本次事务的全部修改，不能继续。"_s);
  connection_->RollbackTrans();
  EXPECT_EQ(Stored(3, u"remark"_s), QString());
  Mark(4);
  EXPECT_EQ(Stored(4, u"remark"_s), u"marked"_s);
}

}  // namespace

}  // namespace folvane::test
