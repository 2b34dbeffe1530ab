#include "faults/Fault.h"

#include <map>

#include <folvane/DataError.h>
#include <folvane/SqliteConnection.h>

#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

std::vector<FaultKind> FaultsOf(const std::string& database) {
  if (database != "SQLite") return {FaultKind::Refused, FaultKind::Ended};
  return {FaultKind::Refused, FaultKind::CommitRefused, FaultKind::Interrupted, FaultKind::Locked, FaultKind::Full,
          FaultKind::Write,   FaultKind::Sync,          FaultKind::Read,        FaultKind::Gone};
}

std::string NameOf(FaultKind kind) {
  static const std::map<FaultKind, std::string> names{
      {FaultKind::Refused, "refused"},         {FaultKind::CommitRefused, "commit refused"},
      {FaultKind::Interrupted, "interrupted"}, {FaultKind::Locked, "locked"},
      {FaultKind::Full, "disk full"},          {FaultKind::Write, "write error"},
      {FaultKind::Sync, "sync error"},         {FaultKind::Read, "read error"},
      {FaultKind::Gone, "disk gone"},          {FaultKind::Ended, "connection ended"}};
  return names.at(kind);
}

template <typename Work>
auto FaultyConnection::Run(const char* text, Work work) {
  struct End {
    FaultyConnection& connection;
    bool meets;
    ~End() {
      if (meets) connection.Relent();
    }
  };
  struct Told {
    FaultyConnection& connection;
    ~Told() noexcept(false) {
      if (connection.afterLasting && !std::uncaught_exceptions() && !connection.driver_->InTransaction())
        connection.afterLasting();
    }
  };
  const bool meets = ++statements_ == (fault_ ? fault_->statement : 0);
  if (meets) met_ = text;
  const Told told{*this};
  const End end{*this, meets};
  try {
    if (meets) Strike();
    return work();
  } catch (...) {
    hasFailed_ = true;
    throw;
  }
}

/// Another connection's driver, each of whose calls counts as a statement.
class CountingDriver final : public Driver {
 public:
  CountingDriver(Driver& inner, FaultyConnection& watch) : inner_(inner), watch_(watch) {}

  DialectKind Dialect() const override { return inner_.Dialect(); }
  qint64 Execute(const NativeStatement& statement) override {
    return watch_.Run(statement.text.constData(), [&] { return inner_.Execute(statement); });
  }
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override {
    watch_.Run(statement.text.constData(), [&] { inner_.Query(statement, columns, rows); });
  }
  std::optional<TableInfo> Describe(const QString& table) override {
    return watch_.Run("columns of a table", [&] { return inner_.Describe(table); });
  }
  QByteArray PinyinCollation() override { return inner_.PinyinCollation(); }
  void Begin() override {
    watch_.Run("begin", [&] { inner_.Begin(); });
  }
  void Commit() override {
    watch_.Run("commit", [&] { inner_.Commit(); });
  }
  void Rollback() override { inner_.Rollback(); }
  bool InTransaction() const override { return inner_.InTransaction(); }

 private:
  Driver& inner_;
  FaultyConnection& watch_;
};

namespace {

sqlite3* OpenFile(const QByteArray& path) {
  sqlite3* handle = nullptr;
  if (sqlite3_open(path.constData(), &handle) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(handle));
  return handle;
}

}  // namespace

FaultyConnection::FaultyConnection(TestDatabase& database, Disk& disk) : database_(database), disk_(disk) {
  if (database.Kind() == "SQLite") {
    path_ = database.Value(u"select file from pragma_database_list"_s).toUtf8();
    handle_ = OpenFile(path_);
    other_ = OpenFile(path_);
    inner_ = AdoptSqlite(handle_);
  } else {
    inner_ = database.Connect();
  }
  DatabaseSession& session = DatabaseSession::Of(*inner_);
  if (!handle_) backend_ = session.FetchNative({"select pg_backend_pid()", {}}).rows->At(0, 0).ToVariant().toString();
  auto driver = std::make_unique<CountingDriver>(session.NativeDriver(), *this);
  driver_ = driver.get();
  connection_ = MakeConnection(std::move(driver));
}

FaultyConnection::~FaultyConnection() {
  Disarm();
  EXPECT_EQ(connection_.use_count(), 1) << "somebody still holds the connection";
  connection_.reset();
  inner_.reset();
  if (!handle_) return;
  EXPECT_EQ(sqlite3_close(handle_), SQLITE_OK) << "a statement was left open: " << sqlite3_errmsg(handle_);
  sqlite3_close(other_);
}

void FaultyConnection::Arm(const std::optional<Fault>& fault) {
  fault_ = fault;
  statements_ = 0;
  hasFailed_ = false;
  met_.clear();
}

void FaultyConnection::Disarm() {
  fault_.reset();
  disk_.Fail(DiskFault::None);
  Relent();
}

void FaultyConnection::ExpectAtRest() {
  if (handle_) {
    connection_->Execute(u"Select 1"_s);  // after which a rollback that is due has been made
    EXPECT_TRUE(sqlite3_get_autocommit(handle_)) << "a transaction is open";
    return;
  }
  const QString state = database_.Value(u"select state from pg_stat_activity where pid = "_s + backend_);
  EXPECT_TRUE(state == u"idle"_s || state == u"<no row>"_s) << state.toStdString();
}

// A server that refuses a statement does so in its place: an error of another statement leaves the same behind.
void FaultyConnection::Strike() {
  if (handle_) return StrikeSqlite();
  if (fault_->kind == FaultKind::Ended)
    database_.Rows(u"select pg_terminate_backend(%1, 5000)"_s.arg(backend_));
  else
    DatabaseSession::Of(*inner_).NativeDriver().Execute({"select 1/0", {}});
}

void FaultyConnection::Relent() {
  if (!handle_) return;
  sqlite3_set_authorizer(handle_, nullptr, nullptr);
  sqlite3_commit_hook(handle_, nullptr, nullptr);
  sqlite3_progress_handler(handle_, 0, nullptr, nullptr);
  if (!fault_ || (fault_->kind != FaultKind::Full && fault_->kind != FaultKind::Gone)) disk_.Fail(DiskFault::None);
  if (!sqlite3_get_autocommit(other_)) sqlite3_exec(other_, "rollback", nullptr, nullptr, nullptr);
}

void FaultyConnection::StrikeSqlite() {
  static const std::map<FaultKind, DiskFault> disk{{FaultKind::Full, DiskFault::Full},
                                                   {FaultKind::Write, DiskFault::Write},
                                                   {FaultKind::Sync, DiskFault::Sync},
                                                   {FaultKind::Read, DiskFault::Read},
                                                   {FaultKind::Gone, DiskFault::Gone}};
  if (const auto fails = disk.find(fault_->kind); fails != disk.end()) return disk_.Fail(fails->second);
  if (fault_->kind == FaultKind::Locked) return LockOut();
  if (fault_->kind == FaultKind::Refused) {
    const auto deny = [](void*, int, const char*, const char*, const char*, const char*) { return SQLITE_DENY; };
    sqlite3_set_authorizer(handle_, deny, nullptr);
  } else if (fault_->kind == FaultKind::CommitRefused) {
    sqlite3_commit_hook(
        handle_, [](void*) { return 1; }, nullptr);
  } else {
    const auto interrupt = [](void* handle) {
      sqlite3_interrupt(static_cast<sqlite3*>(handle));
      return 0;
    };
    sqlite3_progress_handler(handle_, fault_->depth, interrupt, handle_);
  }
}

// Inside of a transaction another connection can only read, which keeps it from being committed.
void FaultyConnection::LockOut() {
  const char* lock = sqlite3_get_autocommit(handle_) ? "begin exclusive" : "begin; select count(*) from sqlite_master";
  EXPECT_EQ(sqlite3_exec(other_, lock, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(other_);
}

}  // namespace folvane::test
