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

void InsertRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = EmptyTable(setting);
  std::vector<QByteArrayList> rows;
  for (qint64 i = 0; i < setting.rows; ++i) rows.push_back(SampleRow(i));
  meter.Start();
  sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* insert = nullptr;
  Check(sqlite3_prepare_v2(database, InsertText().constData(), -1, &insert, nullptr), SQLITE_OK, database);
  for (const QByteArrayList& row : rows) {
    for (int column = 0; column < kColumns; ++column)
      sqlite3_bind_text(insert, column + 1, row[column].constData(), int(row[column].size()), SQLITE_STATIC);
    Check(sqlite3_step(insert), SQLITE_DONE, database);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  meter.Stop();
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
      {QStringLiteral("insert-raw"), InsertRaw},
      {QStringLiteral("insert-literals"), InsertLiterals},
      {QStringLiteral("insert-literals-raw"), InsertLiteralsRaw},
  };
}

}  // namespace folvane::bench
