#include "support/OdbcHandle.h"

#include <array>
#include <memory>
#include <sqlext.h>
#include <sqlucode.h>
#include <stdexcept>

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

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
    if (length == SQL_NULL_DATA) return u"<null>"_s;
    text += piece.data();
    if (outcome == SQL_SUCCESS) break;
  }
  Check(outcome, SQL_HANDLE_STMT, statement, u"reading a value"_s);
  return QString::fromUtf8(text);
}

}  // namespace

OdbcHandle::OdbcHandle(QByteArray connection, Calls calls) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  const auto connect = [&] {
    if (calls == Calls::Ansi)
      return SQLDriverConnect(connection_, nullptr, AsSql(connection), SQL_NTS, nullptr, 0, nullptr,
                              SQL_DRIVER_NOPROMPT);
    std::u16string wide = QString::fromUtf8(connection).toStdU16String();
    return SQLDriverConnectW(connection_, nullptr, reinterpret_cast<SQLWCHAR*>(wide.data()), SQL_NTS, nullptr, 0,
                             nullptr, SQL_DRIVER_NOPROMPT);
  };
  Check(connect(), SQL_HANDLE_DBC, connection_, QString::fromUtf8(connection));
}

OdbcHandle::~OdbcHandle() {
  SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

std::vector<QStringList> OdbcHandle::Rows(const QString& sql) {
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

}  // namespace folvane::test
