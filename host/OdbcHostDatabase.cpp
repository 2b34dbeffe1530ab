#include <array>
#include <sql.h>
#include <sqlext.h>

#include <folvane/OdbcConnection.h>

#include "host/HostDatabase.h"
#include "host/demo/OdbcHandle.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

using demo::Diagnosis;
using demo::OdbcHandle;

SQLCHAR* Text(const char* text) { return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text)); }

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
    throw HostError(u"数据库中的用户表 UserPopedom 无法读取，可能不是本系统的数据库：\n%1"_s.arg(
        Diagnosis(SQL_HANDLE_STMT, statement)));
  }
  QList<HostUser> users;
  while (SQL_SUCCEEDED(SQLFetch(statement))) users.append({ColumnText(statement, 1), ColumnText(statement, 2)});
  return users;
}

}  // namespace

OpenedDatabase OpenOdbc(const QString& connectionString) {
  if (connectionString.trimmed().isEmpty()) throw HostError(u"请输入 ODBC 连接串。"_s);
  auto handle = std::make_unique<OdbcHandle>(connectionString);
  if (!handle->Connected()) {
    throw HostError(u"无法连接数据库服务器：\n%1"_s.arg(Diagnosis(SQL_HANDLE_DBC, handle->Get())));
  }
  OpenedDatabase opened;
  opened.users = ReadUsers(handle->Get());
  std::shared_ptr<OdbcHandle> owner(std::move(handle));
  auto connection = AdoptOdbc(owner->Get());
  opened.connection = KeepOpen(std::move(owner), std::move(connection));
  return opened;
}

}  // namespace folvane::host
