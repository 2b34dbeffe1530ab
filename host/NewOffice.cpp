#include "host/NewOffice.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include <folvane/Catalogue.h>
#include <folvane/OdbcConnection.h>

#include "host/Accounts.h"
#include "host/ProgramFolder.h"
#include "host/demo/OdbcHandle.h"
#include "host/demo/SqliteFile.h"

static void InitDesigns() { Q_INIT_RESOURCE(designs); }

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

Design ReadReadyMade(const QString& name) {
  InitDesigns();
  QFile file(u":/folvane/designs/%1.yaml"_s.arg(name));
  if (!file.open(QIODevice::ReadOnly)) throw HostError(u"没有名为“%1”的现成设计。"_s.arg(name));
  return ParseDesign(file.readAll());
}

void DropLooseTransfers(Design& design) {
  const auto isThere = [&](const QString& table) {
    return std::any_of(design.tables.begin(), design.tables.end(),
                       [&](const Design::Table& each) { return each.name.compare(table, Qt::CaseInsensitive) == 0; });
  };
  std::erase_if(design.transfers, [&](const Design::TransferMap& transfer) {
    return !isThere(transfer.source) || !isThere(transfer.destination);
  });
}

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

const std::vector<ReadyMade>& ReadyMades() {
  static const std::vector<ReadyMade> designs{
      {u"incoming"_s, u"收文登记"_s, u"登记、分发、传阅和办理收到的公文"_s},
      {u"outgoing"_s, u"发文登记"_s, u"登记本单位制发的公文，按机关代字编号"_s},
      {u"minutes"_s, u"会议纪要"_s, u"会议的议题、出席人员和议定事项"_s},
      {u"contracts"_s, u"合同登记"_s, u"合同的对方单位、金额、期限和履行状态"_s},
      {u"archive-items"_s, u"归档文件（按件）"_s, u"按件整理，档号由全宗号、门类、年度、保管期限、机构和件号组成"_s},
      {u"archive-volumes"_s, u"案卷和卷内文件"_s, u"按卷整理，卷内文件的档号在案卷档号之后"_s},
      {u"personnel"_s, u"人事档案"_s, u"人员和十类档案材料"_s},
      {u"photos"_s, u"照片档案"_s, u"照片的题名、人物、摄影者和说明"_s},
  };
  return designs;
}

Design JoinedDesign(const QStringList& names) {
  Design design;
  for (const QString& name : names) design = Joined(design, ReadReadyMade(name));
  DropLooseTransfers(design);
  return design;
}

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
