#include "host/NewOffice.h"

#include <QFileInfo>

#include <folvane/Catalogue.h>
#include <folvane/OdbcConnection.h>

#include "host/Accounts.h"
#include "host/ProgramFolder.h"
#include "host/demo/OdbcHandle.h"
#include "host/demo/SqliteFile.h"
#include "host/readymade/ReadyMade.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

void Fill(Connection& connection, const OfficeOrder& order) {
  Transaction transaction(connection);
  CreateTables(connection);
  Design wanted = JoinedDesign(order.readyMade);
  wanted.users.push_back({u"1"_s, order.administrator, {}});
  PutInOrder(wanted);
  ApplyDesign(connection, PlanDesign(connection, ReadDesign(connection), wanted));
  // They only borrow the connection.
  Accounts(std::shared_ptr<Connection>(&connection, [](Connection*) {})).SetPassword(u"1"_s, order.password);
  transaction.Commit();
}

void RequireEmpty(Connection& connection) {
  const Design found = ReadDesign(connection);
  if (!found.users.empty() || !found.tables.empty())
    throw HostError(u"该数据库中已经有本系统的数据，请直接登录，或者使用空的数据库。"_s);
}

}  // namespace

void MakeOffice(const OfficeOrder& order) {
  if (order.administrator.trimmed().isEmpty()) throw HostError(u"请输入系统管理员的姓名。"_s);
  ProvideSettings();
  if (!order.where.file.isEmpty()) {
    if (QFileInfo::exists(order.where.file)) throw HostError(u"文件“%1”已经存在。"_s.arg(order.where.file));
    return demo::MakeSqliteFile(order.where.file, [&](Connection& connection) { Fill(connection, order); });
  }
  if (order.where.odbc.trimmed().isEmpty()) throw HostError(u"请选择数据库文件，或输入 ODBC 连接串。"_s);
  const demo::OdbcHandle handle(order.where.odbc);
  if (!handle.Connected())
    throw HostError(u"无法连接数据库服务器：\n%1"_s.arg(demo::Diagnosis(SQL_HANDLE_DBC, handle.Get())));
  const auto connection = AdoptOdbc(handle.Get());
  RequireEmpty(*connection);
  Fill(*connection, order);
}

}  // namespace folvane::host
