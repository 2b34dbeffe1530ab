#include "bench/SampleTable.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <memory>
#include <sql.h>
#include <sqlext.h>
#include <sqlite3.h>

namespace folvane::bench {

namespace {

// Name, type and text of each column; "#" stands for the number of the row.
struct Column {
  const char* name;
  const char* type;
  const char* text;
};

constexpr Column kTable[kColumns] = {
    {"ArchiveID", "varchar(20) not null primary key", "2003#"},
    {"Reference", "varchar(40)", "国办发〔2003〕#号"},
    {"Title", "varchar(200)", "关于进一步做好公文登记、传阅、催办和归档工作有关事项的通知 #"},
    {"SendUnit", "varchar(40)", "办公厅秘书处"},
    {"ReceiveUnit", "varchar(40)", "各部门、各直属机构"},
    {"FileType", "varchar(10)", "通知"},
    {"Secret", "varchar(10)", "内部"},
    {"Urgency", "varchar(10)", "平急"},
    {"SignDate", "varchar(10)", "2003-07-15"},
    {"ReceiveDate", "varchar(10)", "2003-07-18"},
    {"Pages", "integer", "12"},
    {"Copies", "integer", "3"},
    {"Keeper", "varchar(20)", "张三"},
    {"Period", "varchar(10)", "长期"},
    {"BoxNumber", "integer", "118"},
    {"Keywords", "varchar(100)", "公文 登记 归档 通知"},
    {"Remark", "varchar(100)", "Checked against the register of incoming papers"},
    {"IsArchived", "varchar(1)", "0"},
    {"HasOriginal", "varchar(1)", "1"},
    {"Registrar", "varchar(20)", "u001"},
};

[[noreturn]] void Fail(const char* why) { qFatal("folvane-bench: %s", why); }

}  // namespace

QByteArray CreateTableText() {
  QByteArrayList columns;
  for (const Column& column : kTable) columns << QByteArray(column.name) + ' ' + column.type;
  return "CREATE TABLE Records (" + columns.join(", ") + ')';
}

QByteArray InsertText() { return "INSERT INTO Records VALUES (?" + QByteArray(",?").repeated(kColumns - 1) + ')'; }

QByteArrayList SampleRow(qint64 i) {
  const QByteArray number = QByteArray::number(100'000'000 + i);
  QByteArrayList row;
  for (const Column& column : kTable) row << QByteArray(column.text).replace('#', number);
  return row;
}

sqlite3* OpenSqlite(const QString& path) {
  sqlite3* database = nullptr;
  Check(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK, database);
  sqlite3_exec(database, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
  return database;
}

sqlite3* OpenCopy(const QString& path) {
  const QString copy = path + QStringLiteral(".changed");
  QFile::remove(copy);
  if (!QFile::copy(path, copy)) Fail("the table was not copied");
  return OpenSqlite(copy);
}

void Check(int answer, int wanted, sqlite3* database) {
  if (answer != wanted) Fail(sqlite3_errmsg(database));
}

void MakeSqliteTable(const QString& path, qint64 rows) {
  QFile::remove(path);
  sqlite3* database = OpenSqlite(path);
  sqlite3_stmt* insert = nullptr;
  Check(sqlite3_exec(database, CreateTableText().constData(), nullptr, nullptr, nullptr), SQLITE_OK, database);
  Check(sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr), SQLITE_OK, database);
  Check(sqlite3_prepare_v2(database, InsertText().constData(), -1, &insert, nullptr), SQLITE_OK, database);
  for (qint64 i = 0; i < rows; ++i) {
    const QByteArrayList row = SampleRow(i);
    for (int column = 0; column < kColumns; ++column)
      sqlite3_bind_text(insert, column + 1, row[column].constData(), int(row[column].size()), SQLITE_STATIC);
    Check(sqlite3_step(insert), SQLITE_DONE, database);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  Check(sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK, database);
  sqlite3_close(database);
}

QString SchemaOf(qint64 rows) { return QStringLiteral("rows%1").arg(rows); }

void* ConnectOdbc(const QByteArray& schema) {
  SQLHENV environment = SQL_NULL_HENV;
  SQLHDBC connection = SQL_NULL_HDBC;
  SQLHSTMT statement = SQL_NULL_HSTMT;
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
  SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
  QByteArray text = qgetenv("FOLVANE_TEST_PG");
  if (!SQL_SUCCEEDED(SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr, 0,
                                      nullptr, SQL_DRIVER_NOPROMPT)))
    Fail("no PostgreSQL server: run through scripts/with-postgres");
  SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
  QByteArray path = "SET search_path TO " + schema + ", public";
  if (!SQL_SUCCEEDED(SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(path.data()), SQL_NTS)))
    Fail("PostgreSQL refused the schema");
  SQLFreeHandle(SQL_HANDLE_STMT, statement);
  return connection;
}

void RunPsql(const QString& schema, const QString& command, const QByteArray& input) {
  static const QRegularExpression port(QStringLiteral("Port=(\\d+)"));
  QProcess psql;
  psql.setStandardOutputFile(QProcess::nullDevice());
  psql.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("PGOPTIONS"), QStringLiteral("-c search_path=%1,public").arg(schema));
  psql.setProcessEnvironment(environment);
  psql.start(
      QStringLiteral("psql"),
      {QStringLiteral("--no-psqlrc"), QStringLiteral("--quiet"), QStringLiteral("-h"), QStringLiteral("127.0.0.1"),
       QStringLiteral("-p"), port.match(qEnvironmentVariable("FOLVANE_TEST_PG")).captured(1), QStringLiteral("-U"),
       QStringLiteral("folvane"), QStringLiteral("-c"), command, QStringLiteral("postgres")});
  psql.write(input);
  psql.closeWriteChannel();
  if (!psql.waitForFinished(-1) || psql.exitCode() != 0) Fail("psql failed; run through scripts/with-postgres");
}

void MakePostgresTable(qint64 rows) {
  QByteArray text;
  for (qint64 i = 0; i < rows; ++i) text += SampleRow(i).join('\t') + '\n';
  const QString schema = SchemaOf(rows);
  RunPsql(schema, QStringLiteral("DROP SCHEMA IF EXISTS %1 CASCADE").arg(schema));
  RunPsql(schema, QStringLiteral("CREATE SCHEMA %1").arg(schema));
  RunPsql(schema, QString::fromUtf8(CreateTableText()));
  RunPsql(schema, QStringLiteral("COPY Records FROM STDIN"), text);
  RunPsql(schema, QStringLiteral("VACUUM ANALYZE Records"));
}

}  // namespace folvane::bench
