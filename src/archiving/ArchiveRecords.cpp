#include "archiving/ArchiveRecords.h"

#include <folvane/ClsFileArch.h>

#include "archiving/FrmArchivePara.h"
#include "shell/Messages.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qint16 kModeOfSelection = 0, kModeOfCurrent = -1;

}  // namespace

ArchiveOutcome ArchiveRecords(const ArchiveOrder& order) {
  const ArchiveParameters asked = AskArchiveParameters(order.source, order.destination);
  if (!asked.confirmed) return {false, 0, asked.note};
  ClsFileArch transfer;
  transfer.IsTransOriginal(true);
  transfer.SouSQLWhere(order.statement);
  if (order.list) transfer.TransListview(order.list);
  transfer.TransObjTbl(order.destination);
  transfer.TransSouTbl(order.source);
  bool goesOn = true;
  if (order.progress) transfer.OnProgress([&](int done, int total) { return goesOn = order.progress(done, total); });
  qint16 mode = order.list ? kModeOfSelection : kModeOfCurrent;
  transfer.DoFileArch(mode);
  if (!goesOn) return {false, 0, u"已取消归档，所有记录保持原样"_s};
  const int count = transfer.SucceedCount();
  if (count > 0) ShowMessage(u"成功归档%1份记录！"_s.arg(count));
  return {true, count, asked.note};
}

}  // namespace folvane
