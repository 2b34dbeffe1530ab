#include <QAbstractItemView>
#include <QPointer>

#include <folvane/ClsFileArch.h>
#include <folvane/DataError.h>

#include "archiving/ArchiveTransfer.h"
#include "archiving/FrmInAmain.h"
#include "archiving/TickedRows.h"
#include "shell/LoadedWindow.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qint16 kSelectedRows = 0, kTickedRows = 1;

QString AskVolumeTitle() {
  RequireApplication();
  const LoadedWindow<FrmInAmain> window;
  ShowModal(*window);
  return window->Title;
}

}  // namespace

class ClsFileArch::Transfer {
 public:
  Transfer() { engine.askTitle = AskVolumeTitle; }

  QStringList Records(qint16 mode) const {
    if (mode != kSelectedRows && mode != kTickedRows) return {Shared().CurrentRecords[u"ArchiveID"_s].Text()};
    if (!list) throw DataError(DataErrorKind::Usage, u"没有指定要归档的记录列表。"_s);
    return mode == kSelectedRows ? SelectedRecords(*list) : TickedRecords(*list->model(), ticked);
  }

  TransferOrder order;
  QPointer<QAbstractItemView> list;
  qint16 ticked = 0;
  ArchiveTransfer engine;
};

ClsFileArch::ClsFileArch() : transfer_(std::make_unique<Transfer>()) {}
ClsFileArch::~ClsFileArch() = default;

void ClsFileArch::TransSouTbl(const QString& table) { transfer_->order.sourceTable = table; }
void ClsFileArch::TransObjTbl(const QString& table) { transfer_->order.destinationTable = table; }
void ClsFileArch::TransListview(QAbstractItemView* list) { transfer_->list = list; }
void ClsFileArch::SouSQLWhere(const QString& statement) { transfer_->order.sourceStatement = statement; }
void ClsFileArch::NeedArchCount(qint16 count) { transfer_->ticked = count; }
void ClsFileArch::IsTransOriginal(bool take) { transfer_->order.withOriginals = take; }

void ClsFileArch::OnProgress(std::function<bool(int done, int total)> progress) {
  transfer_->engine.onProgress = std::move(progress);
}

void ClsFileArch::BeforeCommit(std::function<void()> work) { transfer_->engine.beforeCommit = std::move(work); }

qint16 ClsFileArch::SucceedCount() const { return transfer_->engine.SucceedCount(); }
QString ClsFileArch::ResultMsg() const { return transfer_->engine.ResultMsg(); }

void ClsFileArch::DoFileArch(qint16& mode) {
  transfer_->engine.DoFileArch(transfer_->order, transfer_->Records(mode),
                               mode == kSelectedRows || mode == kTickedRows);
}

void ClsFileArch::InputAmaintitle(const QString& objectTable, const QString& parentTable, const QString& storeField,
                                  const QString& scopeClause, QString& /*result*/) {
  transfer_->engine.InputAmaintitle(objectTable, parentTable, storeField, scopeClause);
}

}  // namespace folvane
