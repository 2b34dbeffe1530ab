// Ten thousand rows written one statement each, in one transaction.
#include <QFile>
#include <sqlite3.h>

#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"

namespace folvane::bench {

namespace {

sqlite3* EmptyTable(const Setting& setting) {
  const QString path = setting.database + QStringLiteral(".written");
  QFile::remove(path);
  sqlite3* database = OpenSqlite(path);
  Check(sqlite3_exec(database, CreateTableText().constData(), nullptr, nullptr, nullptr), SQLITE_OK, database);
  return database;
}

/// One prepared statement for all rows. What stands in `rows` is bound by `bind`.
template <typename Rows, typename Bind>
void InsertPrepared(const Setting& setting, const Rows& rows, Bind bind, Meter& meter) {
  sqlite3* database = EmptyTable(setting);
  meter.Start();
  sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* insert = nullptr;
  Check(sqlite3_prepare_v2(database, InsertText().constData(), -1, &insert, nullptr), SQLITE_OK, database);
  for (const auto& row : rows) {
    for (int column = 0; column < kColumns; ++column) bind(insert, column + 1, row[column]);
    Check(sqlite3_step(insert), SQLITE_DONE, database);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  meter.Stop();
}

void InsertBytes(const Setting& setting, Meter& meter) {
  std::vector<QByteArrayList> rows;
  for (qint64 i = 0; i < setting.rows; ++i) rows.push_back(SampleRow(i));
  const auto bind = [](sqlite3_stmt* insert, int column, const QByteArray& value) {
    sqlite3_bind_text(insert, column, value.constData(), int(value.size()), SQLITE_STATIC);
  };
  InsertPrepared(setting, rows, bind, meter);
}

/// As a program binds them that keeps its values as Qt's own texts.
void InsertTexts(const Setting& setting, Meter& meter) {
  std::vector<QStringList> rows;
  for (qint64 i = 0; i < setting.rows; ++i) {
    rows.emplace_back();
    for (const QByteArray& value : SampleRow(i)) rows.back() << QString::fromUtf8(value);
  }
  const auto bind = [](sqlite3_stmt* insert, int column, const QString& value) {
    const QByteArray bytes = value.toUtf8();
    sqlite3_bind_text(insert, column, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
  };
  InsertPrepared(setting, rows, bind, meter);
}

/// The statements as the windows compose them, with the values as literals.
QStringList InsertStatements(qint64 count) {
  QStringList statements;
  for (qint64 i = 0; i < count; ++i)
    statements << QStringLiteral("Insert Into Records Values ('") + QString::fromUtf8(SampleRow(i).join("','")) +
                      QStringLiteral("')");
  return statements;
}

void InsertLiterals(const Setting& setting, Meter& meter) {
  sqlite3* database = EmptyTable(setting);
  const QStringList statements = InsertStatements(setting.rows);
  const std::shared_ptr<Connection> connection = AdoptSqlite(database);
  meter.Start();
  Transaction transaction(*connection);
  for (const QString& statement : statements) connection->Execute(statement);
  transaction.Commit();
  meter.Stop();
}

/// The same texts given to SQLite as they stand, each to be parsed anew.
void InsertLiteralsRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = EmptyTable(setting);
  const QStringList statements = InsertStatements(setting.rows);
  meter.Start();
  sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  for (const QString& statement : statements)
    Check(sqlite3_exec(database, statement.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK, database);
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  meter.Stop();
}

}  // namespace

Cases WritingCases() {
  return {
      {QStringLiteral("insert-bytes"), InsertBytes},
      {QStringLiteral("insert-texts"), InsertTexts},
      {QStringLiteral("insert-literals"), InsertLiterals},
      {QStringLiteral("insert-literals-raw"), InsertLiteralsRaw},
  };
}

}  // namespace folvane::bench
