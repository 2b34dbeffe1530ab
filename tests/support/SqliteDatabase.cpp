#include "support/SqliteDatabase.h"

#include <map>
#include <sqlite3.h>
#include <stdexcept>

#include <folvane/SqliteConnection.h>

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void Fail(sqlite3* handle, const QString& sql) {
  throw std::runtime_error(std::string(sqlite3_errmsg(handle)) + " in: " + sql.toStdString());
}

void Copy(sqlite3* from, sqlite3* to) {
  sqlite3_backup* copy = sqlite3_backup_init(to, "main", from, "main");
  if (!copy || sqlite3_backup_step(copy, -1) != SQLITE_DONE) Fail(to, u"copying a database"_s);
  sqlite3_backup_finish(copy);
}

QString TextOf(sqlite3_stmt* statement, int column) {
  if (sqlite3_column_type(statement, column) == SQLITE_NULL) return u"<null>"_s;
  return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                           sqlite3_column_bytes(statement, column));
}

}  // namespace

SqliteDatabase::SqliteDatabase() : own_(Open()) {}

SqliteDatabase::~SqliteDatabase() { sqlite3_close_v2(own_); }

sqlite3* SqliteDatabase::Open() const {
  sqlite3* handle = nullptr;
  const QByteArray path = directory_.filePath(u"test.db"_s).toUtf8();
  if (sqlite3_open(path.constData(), &handle) != SQLITE_OK) Fail(handle, QString::fromUtf8(path));
  // A crash of the machine may cost the test its file; waiting for the disk at every statement would cost minutes.
  sqlite3_exec(handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
  return handle;
}

std::shared_ptr<Connection> SqliteDatabase::Connect() {
  sqlite3* handle = Open();
  std::shared_ptr<Connection> adopted = AdoptSqlite(handle);
  Connection* connection = adopted.get();
  return {connection, [adopted = std::move(adopted), handle](Connection*) mutable {
            adopted.reset();
            // Fails, and shows, when a statement was left open on the handle.
            EXPECT_EQ(sqlite3_close(handle), SQLITE_OK) << sqlite3_errmsg(handle);
          }};
}

// A copy of the file's pages takes a tenth of the time of making the tables.
void SqliteDatabase::Furnish(TableMaker* make) {
  static std::map<TableMaker*, std::unique_ptr<sqlite3, decltype(&sqlite3_close)>> kept;
  if (const auto before = kept.find(make); before != kept.end()) return Copy(before->second.get(), own_);
  make(*Connect());
  sqlite3* copy = nullptr;
  if (sqlite3_open(":memory:", &copy) != SQLITE_OK) Fail(copy, u":memory:"_s);
  kept.emplace(make, decltype(kept)::mapped_type(copy, &sqlite3_close));
  Copy(own_, copy);
}

std::vector<QStringList> SqliteDatabase::Rows(const QString& sql) {
  sqlite3_stmt* statement = nullptr;
  const QByteArray text = sql.toUtf8();
  if (sqlite3_prepare_v2(own_, text.constData(), -1, &statement, nullptr) != SQLITE_OK) Fail(own_, sql);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> guard(statement, &sqlite3_finalize);
  std::vector<QStringList> rows;
  int outcome = SQLITE_DONE;
  while ((outcome = sqlite3_step(statement)) == SQLITE_ROW) {
    QStringList row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) row << TextOf(statement, column);
    rows.push_back(row);
  }
  if (outcome != SQLITE_DONE) Fail(own_, sql);
  return rows;
}

}  // namespace folvane::test
