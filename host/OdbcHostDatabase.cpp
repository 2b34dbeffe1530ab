#include <array>
#include <sql.h>
#include <sqlext.h>

#include <folvane/OdbcConnection.h>

#include "host/HostDatabase.h"

namespace folvane::host {
namespace {

constexpr quintptr kLogOnSeconds = 15;

SQLCHAR* Text(const char* text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text)); }

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

// An environment and a connection in it, ended in the order that ODBC asks for.
class OdbcHandle {
 public:
  explicit OdbcHandle(const QString& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, SQLPOINTER(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    SQLSetConnectAttr(connection_, SQL_ATTR_LOGIN_TIMEOUT, SQLPOINTER(kLogOnSeconds), 0);
    const QByteArray text = connectionString.toUtf8();
    connected_ = SQL_SUCCEEDED(SQLDriverConnect(connection_, nullptr, Text(text.constData()), SQL_NTS, nullptr, 0,
                                                nullptr, SQL_DRIVER_NOPROMPT));
  }
  ~OdbcHandle() {
    if (connected_) SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;

  bool Connected() const { return connected_; }
  SQLHDBC Get() const { return connection_; }

 private:
  SQLHENV environment_ = SQL_NULL_HANDLE;
  SQLHDBC connection_ = SQL_NULL_HANDLE;
  bool connected_ = false;
};

QString ColumnText(SQLHSTMT statement, SQLUSMALLINT column) {
  std::array<char, 256> text{};
  SQLLEN length = 0;
  if (!SQL_SUCCEEDED(SQLGetData(statement, column, SQL_C_CHAR, text.data(), SQLLEN(text.size()), &length))) return {};
  return length == SQL_NULL_DATA ? QString() : QString::fromUtf8(text.data()).trimmed();
}

QList<HostUser> ReadUsers(SQLHDBC connection) {
  SQLHSTMT statement = SQL_NULL_HANDLE;
  SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
  const std::unique_ptr<void, void (*)(SQLHSTMT)> ended(statement,
                                                        [](SQLHSTMT each) { SQLFreeHandle(SQL_HANDLE_STMT, each); });
  if (!SQL_SUCCEEDED(SQLExecDirect(statement, Text("select UserID, UserName from UserPopedom"), SQL_NTS))) {
    throw HostError(QStringLiteral("数据库中的用户表 UserPopedom 无法读取，可能不是本系统的数据库：\n%1")
                        .arg(Diagnosis(SQL_HANDLE_STMT, statement)));
  }
  QList<HostUser> users;
  while (SQL_SUCCEEDED(SQLFetch(statement))) users.append({ColumnText(statement, 1), ColumnText(statement, 2)});
  return users;
}

}  // namespace

OpenedDatabase OpenOdbc(const QString& connectionString) {
  if (connectionString.trimmed().isEmpty()) throw HostError(QStringLiteral("请输入 ODBC 连接串。"));
  auto handle = std::make_unique<OdbcHandle>(connectionString);
  if (!handle->Connected()) {
    throw HostError(QStringLiteral("无法连接数据库服务器：\n%1").arg(Diagnosis(SQL_HANDLE_DBC, handle->Get())));
  }
  OpenedDatabase opened;
  opened.users = ReadUsers(handle->Get());
  std::shared_ptr<OdbcHandle> owner(std::move(handle));
  auto connection = AdoptOdbc(owner->Get());
  opened.connection = KeepOpen(std::move(owner), std::move(connection));
  return opened;
}

}  // namespace folvane::host
