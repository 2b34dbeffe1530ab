#pragma once

#include <QByteArrayList>
#include <QString>

struct sqlite3;

namespace folvane {
class Connection;
}

namespace folvane::bench {

/// The table that everything is measured on: 20 columns, about 335 bytes a row, keyed by ArchiveID.
constexpr int kColumns = 20;
QByteArray CreateTableText();
/// The values of row i (from 0), in UTF-8.
QByteArrayList SampleRow(qint64 i);
QByteArray InsertText();

/// Makes the file with that many rows.
void MakeSqliteTable(const QString& path, qint64 rows);
/// Makes the table with that many rows on the server of FOLVANE_TEST_PG, in a schema of its own.
void MakePostgresTable(qint64 rows);
/// The schema of the table with that many rows.
QString SchemaOf(qint64 rows);

/// Runs a command in a schema, or an input through it, by psql on that server; gives what comes out of it to nobody.
void RunPsql(const QString& schema, const QString& command, const QByteArray& input = {});
/// Connects to that server, with this schema ahead of others. @return the ODBC connection handle
void* ConnectOdbc(const QByteArray& schema);

/// Opens a file of SQLite or ends the process.
sqlite3* OpenSqlite(const QString& path);
/// Opens a copy of the file, in place of an earlier one, that a case may change.
sqlite3* OpenCopy(const QString& path);
/// Ends the process, telling why, when an answer of SQLite is not the wanted one.
void Check(int answer, int wanted, sqlite3* database);

}  // namespace folvane::bench
