#include "support/PostgresDatabase.h"

#include <QUuid>
#include <array>
#include <sql.h>
#include <sqlext.h>
#include <stdexcept>

#include <folvane/OdbcConnection.h>

namespace folvane::test {

namespace {

SQLCHAR* AsSql(QByteArray& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }

void Check(SQLRETURN outcome, SQLSMALLINT type, SQLHANDLE handle, const QString& doing) {
  if (SQL_SUCCEEDED(outcome) || outcome == SQL_NO_DATA) return;
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 1024> message{};
  SQLGetDiagRec(type, handle, 1, state.data(), nullptr, message.data(), SQLSMALLINT(message.size()), nullptr);
  throw std::runtime_error(reinterpret_cast<char*>(message.data()) + (" in: " + doing.toStdString()));
}

QString TextOf(SQLHSTMT statement, SQLUSMALLINT column) {
  QByteArray text;
  std::array<char, 4096> piece{};
  SQLLEN length = 0;
  SQLRETURN outcome = SQL_SUCCESS;
  while (SQL_SUCCEEDED(outcome = SQLGetData(statement, column, SQL_C_CHAR, piece.data(), piece.size(), &length))) {
    if (length == SQL_NULL_DATA) return QStringLiteral("<null>");
    text += piece.data();
    if (outcome == SQL_SUCCESS) break;
  }
  Check(outcome, SQL_HANDLE_STMT, statement, QStringLiteral("reading a value"));
  return QString::fromUtf8(text);
}

}  // namespace

class PostgresDatabase::Handle {
 public:
  explicit Handle(QByteArray connection) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    Check(SQLDriverConnect(connection_, nullptr, AsSql(connection), SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, connection_, QString::fromUtf8(connection));
  }
  ~Handle() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHDBC Connection() const { return connection_; }

  std::vector<QStringList> Rows(const QString& sql) {
    SQLHSTMT statement = SQL_NULL_HSTMT;
    Check(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement), SQL_HANDLE_DBC, connection_, sql);
    const std::unique_ptr<void, void (*)(void*)> guard(statement, [](void* s) { SQLFreeHandle(SQL_HANDLE_STMT, s); });
    QByteArray text = sql.toUtf8();
    Check(SQLExecDirect(statement, AsSql(text), SQL_NTS), SQL_HANDLE_STMT, statement, sql);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::vector<QStringList> rows;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) {
      QStringList row;
      for (SQLSMALLINT column = 1; column <= columns; ++column) row << TextOf(statement, SQLUSMALLINT(column));
      rows.push_back(row);
    }
    return rows;
  }

 private:
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
};

PostgresDatabase::PostgresDatabase() : schema_(QStringLiteral("test_") + QUuid::createUuid().toString(QUuid::Id128)) {
  if (!qEnvironmentVariableIsSet("FOLVANE_TEST_PG")) {
    throw std::runtime_error("no PostgreSQL server: run through scripts/with-postgres");
  }
  Handle(qgetenv("FOLVANE_TEST_PG")).Rows(QStringLiteral("CREATE SCHEMA ") + schema_);
  own_ = Open();
}

PostgresDatabase::~PostgresDatabase() {
  try {
    // A connection left inside a transaction must fail its test instead of holding it up for ever.
    Native(QStringLiteral("SET lock_timeout = '5s'"));
    Native(QStringLiteral("SET client_min_messages = warning"));
    Native(QStringLiteral("DROP SCHEMA ") + schema_ + QStringLiteral(" CASCADE"));
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
}

std::unique_ptr<PostgresDatabase::Handle> PostgresDatabase::Open() const {
  auto handle = std::make_unique<Handle>(qgetenv("FOLVANE_TEST_PG"));
  handle->Rows(QStringLiteral("SET search_path TO ") + schema_);
  return handle;
}

std::shared_ptr<Connection> PostgresDatabase::Connect() {
  std::shared_ptr<Handle> handle = Open();
  std::shared_ptr<Connection> adopted = AdoptOdbc(handle->Connection());
  Connection* connection = adopted.get();
  return {connection, [adopted = std::move(adopted), handle = std::move(handle)](Connection*) mutable {
            adopted.reset();
            handle.reset();
          }};
}

std::vector<QStringList> PostgresDatabase::Rows(const QString& sql) { return own_->Rows(sql); }

}  // namespace folvane::test
