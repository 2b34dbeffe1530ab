#include "data/drivers/sqlite/SqliteDriver.h"

#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "data/DatabaseSession.h"
#include "data/RowStore.h"
#include "data/drivers/sqlite/SqliteErrors.h"
#include "data/drivers/sqlite/SqliteFunctions.h"
#include "data/drivers/sqlite/SqliteSchema.h"
#include "data/drivers/sqlite/SqliteStatement.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostPrepared = 64;

std::vector<ColumnInfo> ColumnsOf(sqlite3_stmt* statement) {
  std::vector<ColumnInfo> columns(size_t(sqlite3_column_count(statement)));
  for (int i = 0; i < int(columns.size()); ++i) {
    ColumnInfo& column = columns[size_t(i)];
    column.name = QString::fromUtf8(sqlite3_column_name(statement, i));
    const char* declared = sqlite3_column_decltype(statement, i);
    ReadDeclaredType(QString::fromUtf8(declared), column);
    if (!declared) column.type = 0;  // an expression: its first value decides
  }
  return columns;
}

// Keeps other threads off the database while a row's values are looked at without a lock for each look. See
// "unprotected sqlite3_value" in https://www.sqlite.org/c3ref/value.html
class RowLock {
 public:
  explicit RowLock(sqlite3* database) : mutex_(sqlite3_db_mutex(database)) { sqlite3_mutex_enter(mutex_); }
  ~RowLock() { sqlite3_mutex_leave(mutex_); }
  RowLock(const RowLock&) = delete;
  RowLock& operator=(const RowLock&) = delete;

 private:
  sqlite3_mutex* mutex_;
};

void AppendValue(sqlite3_value* value, RowStore& rows) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return rows.AddNull();
    case SQLITE_INTEGER:
      return rows.AddInteger(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return rows.AddReal(sqlite3_value_double(value));
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
      return rows.AddBytes(bytes, size_t(sqlite3_value_bytes(value)));
    }
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      return rows.AddText(text, size_t(sqlite3_value_bytes(value)));
    }
  }
}

int TypeOfValue(int sqliteType) {
  switch (sqliteType) {
    case SQLITE_INTEGER:
      return AdoType::BigInt;
    case SQLITE_FLOAT:
      return AdoType::Double;
    case SQLITE_BLOB:
      return AdoType::LongVarBinary;
    default:
      return AdoType::LongVarChar;
  }
}

// An expression has no declared type; it takes that of its first value that is not null.
void TypeExpressions(sqlite3_stmt* statement, std::vector<ColumnInfo>& columns, int& untyped) {
  untyped = 0;
  for (int i = 0; i < int(columns.size()); ++i) {
    ColumnInfo& column = columns[size_t(i)];
    if (column.type != 0) continue;
    if (const int type = sqlite3_column_type(statement, i); type != SQLITE_NULL)
      column.type = TypeOfValue(type);
    else
      ++untyped;
  }
}

// Puts a statement of the transaction's back to its start, whatever happened meanwhile.
struct ResetOnLeave {
  SqliteStatement& statement;
  ~ResetOnLeave() { statement.Reset(); }
};

}  // namespace

SqliteDriver::SqliteDriver(sqlite3* database) : database_(database) {
  RegisterSqliteFunctions(database);
  // "x" is always a name: a misspelt column must not turn into a text.
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

SqliteDriver::~SqliteDriver() = default;

std::shared_ptr<SqliteStatement> SqliteDriver::Prepare(const QByteArray& text) {
  if (!inTransaction_) return std::make_shared<SqliteStatement>(database_, text);
  // What follows would be kept one by one, and what went before is gone.
  if (!InTransaction()) throw DataError(DataErrorKind::Other, u"数据库已撤销本次事务的全部修改，不能继续。"_s);
  if (const auto known = prepared_.constFind(text); known != prepared_.constEnd()) return *known;
  if (prepared_.size() >= kMostPrepared) prepared_.clear();
  auto statement = std::make_shared<SqliteStatement>(database_, text);
  prepared_.insert(text, statement);
  return statement;
}

qint64 SqliteDriver::Execute(const NativeStatement& native) {
  const auto statement = Prepare(native.text);
  const ResetOnLeave reset{*statement};
  statement->Bind(native.parameters);
  while (statement->Step()) {
  }
  return sqlite3_changes64(database_);
}

void SqliteDriver::Query(const NativeStatement& native, std::vector<ColumnInfo>& columns, RowStore& rows) {
  const auto statement = Prepare(native.text);
  const ResetOnLeave reset{*statement};
  statement->Bind(native.parameters);
  sqlite3_stmt* handle = statement->Handle();
  bool hasRow = statement->Step();
  columns = ColumnsOf(handle);  // now: the first step compiles anew over tables that others have changed
  const int count = int(columns.size());
  rows.SetColumnCount(count);
  for (int untyped = count; hasRow; hasRow = statement->Step()) {
    if (untyped) TypeExpressions(handle, columns, untyped);
    const RowLock lock(database_);
    for (int i = 0; i < count; ++i) AppendValue(sqlite3_column_value(handle, i), rows);
    rows.EndRow();
  }
  for (ColumnInfo& column : columns)
    if (column.type == 0) column.type = AdoType::LongVarChar;
}

std::optional<TableInfo> SqliteDriver::Describe(const QString& table) { return DescribeSqliteTable(database_, table); }

QByteArray SqliteDriver::PinyinCollation() { return RegisterPinyinCollation(database_); }

void SqliteDriver::Begin() {
  if (sqlite3_get_autocommit(database_) == 0)
    throw DataError(DataErrorKind::Usage, u"数据库连接上已有一个事务正在进行，不能再开始另一个事务。"_s);
  // The write lock is taken at once: a transaction that starts by reading cannot be refused at its first write.
  SqliteStatement(database_, "BEGIN IMMEDIATE").Step();
  inTransaction_ = true;
}

void SqliteDriver::Commit() {
  SqliteStatement(database_, "COMMIT").Step();
  prepared_.clear();
  inTransaction_ = false;
}

void SqliteDriver::Rollback() {
  prepared_.clear();
  if (InTransaction()) SqliteStatement(database_, "ROLLBACK").Step();
  inTransaction_ = false;
}

// Some errors roll back by themselves: https://www.sqlite.org/lang_transaction.html
bool SqliteDriver::InTransaction() const { return inTransaction_ && !sqlite3_get_autocommit(database_); }

std::shared_ptr<Connection> AdoptSqlite(sqlite3* database) {
  if (!database) throw DataError(DataErrorKind::Usage, u"没有打开的 SQLite 数据库。"_s);
  return MakeConnection(std::make_unique<SqliteDriver>(database));
}

}  // namespace folvane
