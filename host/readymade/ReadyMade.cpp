#include "host/readymade/ReadyMade.h"

#include <QFile>
#include <algorithm>

#include "host/HostDatabase.h"

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

}  // namespace folvane::host
