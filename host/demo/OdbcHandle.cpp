#include "host/demo/OdbcHandle.h"

#include <array>
#include <sqlext.h>

namespace folvane::demo {

namespace {
constexpr quintptr kLogOnSeconds = 15;
}

OdbcHandle::OdbcHandle(const QString& connectionString) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, SQLPOINTER(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
  SQLSetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, SQLPOINTER(kLogOnSeconds), 0);
  QByteArray text = connectionString.toUtf8();
  connected_ = SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS,
                                              nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
}

OdbcHandle::~OdbcHandle() {
  if (connected_) SQLDisconnect(connection_);
  SQLFreeHandle(SQL_HANDLE_DBC, connection_);
  SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

QString Diagnosis(SQLSMALLINT type, SQLHANDLE handle) {
  std::array<SQLCHAR, 6> state{};
  std::array<SQLCHAR, 2048> message{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN got =
      SQLGetDiagRec(type, handle, 1, state.data(), &native, message.data(), SQLSMALLINT(message.size()), &length);
  if (!SQL_SUCCEEDED(got)) return {};
  return QString::fromUtf8(reinterpret_cast<const char*>(message.data())).simplified();
}

}  // namespace folvane::demo
