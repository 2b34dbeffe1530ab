#include "archiving/ArchiveRecords.h"

#include <QStandardItemModel>
#include <QTreeView>
#include <memory>

#include <folvane/ClsFileArch.h>

#include "archiving/FrmArchivePara.h"
#include "records/ListStatus.h"
#include "shell/Messages.h"
#include "widgets/LongWork.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qint16 kModeOfSelection = 0, kModeOfTicks = 1, kModeOfCurrent = -1;

// The ticked records as a list of their own: the window's may have let go of some of their rows.
class TickedList {
 public:
  explicit TickedList(const QStringList& keys) {
    for (const QString& key : keys) {
      auto* number = new QStandardItem(QString::number(model_.rowCount() + 1));
      number->setCheckState(Qt::Checked);
      model_.appendRow({number, new QStandardItem(key)});
    }
    view_.setModel(&model_);
  }
  QAbstractItemView* View() { return &view_; }

 private:
  QStandardItemModel model_;
  QTreeView view_;
};

qint16 ModeOf(const ArchiveOrder& order) {
  if (!order.ticked.isEmpty()) return kModeOfTicks;
  return order.list ? kModeOfSelection : kModeOfCurrent;
}

// The work begins with the first record: what is asked before takes its time.
class ShownTransfer {
 public:
  explicit ShownTransfer(ListStatus& status) : status_(status) {}
  bool GoOn(int done, int total) {
    if (!work_) {
      work_ = std::make_unique<LongWork>(*status_.window(), &status_.StopKey(),
                                         [this](int at, int maximum) { status_.ShowWork(at, maximum); });
    }
    return goesOn_ = work_->GoOn(done, total);
  }
  bool IsStopped() const { return !goesOn_; }
  void End() { work_.reset(); }

 private:
  ListStatus& status_;
  std::unique_ptr<LongWork> work_;
  bool goesOn_ = true;
};

}  // namespace

ArchiveOutcome TransferRecords(const ArchiveOrder& order, ListStatus* status) {
  TickedList ticked(order.ticked);
  qint16 mode = ModeOf(order);
  ClsFileArch transfer;
  transfer.IsTransOriginal(order.withOriginals);
  transfer.NeedArchCount(qint16(order.ticked.size()));
  transfer.SouSQLWhere(order.statement);
  if (mode != kModeOfCurrent) transfer.TransListview(mode == kModeOfTicks ? ticked.View() : order.list);
  transfer.TransObjTbl(order.destination);
  transfer.TransSouTbl(order.source);
  transfer.BeforeCommit(order.mark);
  std::unique_ptr<ShownTransfer> shown;
  if (status) {
    shown = std::make_unique<ShownTransfer>(*status);
    transfer.OnProgress([&shown](int done, int total) { return shown->GoOn(done, total); });
  }
  transfer.DoFileArch(mode);
  if (shown) shown->End();
  if (shown && shown->IsStopped()) return {false, 0, u"已取消归档，所有记录保持原样"_s};
  const int count = transfer.SucceedCount();
  if (count > 0)
    ShowMessage(u"成功归档%1份记录！"_s.arg(count) + (mode == kModeOfTicks ? transfer.ResultMsg() : QString()));
  return {true, count, {}};
}

ArchiveOutcome ArchiveRecords(const ArchiveOrder& order, ListStatus* status) {
  const ArchiveParameters asked = AskArchiveParameters(order.source, order.destination);
  if (!asked.confirmed) return {false, 0, asked.note};
  ArchiveOutcome outcome = TransferRecords(order, status);
  if (outcome.note.isEmpty()) outcome.note = asked.note;
  return outcome;
}

}  // namespace folvane
