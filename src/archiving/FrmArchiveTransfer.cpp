#include <QCheckBox>
#include <QLabel>
#include <QTimer>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "archiving/ArchiveFields.h"
#include "archiving/ArchiveRecords.h"
#include "archiving/FrmArchive.h"
#include "archiving/FrmArchivePara.h"
#include "archiving/TransferForecast.h"
#include "base/IgnoreErrors.h"
#include "records/ClassTree.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

// Ticking.

void FrmArchive::TickAll(bool on) {
  if (on) {
    list_->TickLoaded();
  } else {
    list_->ClearTicks();
  }
}

void FrmArchive::TellTicked() {
  if (!list_->HasTicks()) tickAll_->setChecked(false);
  const qsizetype count = list_->Ticked().size();
  const int loaded = list_->Rows().Count();
  QString text;
  if (count > 0) {
    text = u"已勾选 %1 份，列表已读出 %2 份，共 %3 份"_s.arg(count).arg(loaded).arg(list_->RecordCount());
  } else if (loaded > 0) {
    text = u"空格键勾选选中的行，Ctrl+A 勾选已读出的全部行"_s;
  }
  ticked_->setText(text);
  forecastDue_->start();
}

void FrmArchive::TellForecast() {
  const QString target = Target();
  if (SharedConnection()->InTransaction()) return forecastDue_->start();  // a transfer that asks; its rows count later
  if (list_->State() != ListRecords::Opened) return forecast_->clear();
  if (target.isEmpty()) return forecast_->setText(u"该表没有设置归档的目标库，请用“归档设置”登记"_s);
  QString text;
  IgnoreErrors([&] { text = ForecastText(target, fields_->Shown(), int(list_->Ticked().size())); });
  forecast_->setText(text);  // what fails is told by the transfer itself
}

// Commands.

// The component may have changed the targets, and what a number is made of.
void FrmArchive::EditSettings() {
  if (!Services().editTransferSettings) throw DataError(DataErrorKind::Usage, u"归档设置组件没有安装。"_s);
  Services().editTransferSettings(SharedConnection(), u"TransSet"_s);
  tree_->Builder().ReadTargets();
  EnableTransfer(parameters_.Selected(Parameter::Edit) >= u"1"_s && !Target().isEmpty());
  LoadFields();
}

void FrmArchive::Archive(Parameters parameters) {
  const int node = tree_->Current();
  if (node == 0 || tree_->Node(node).image != NodeImage::Table || list_->Rows().Count() == 0) return;
  if (!list_->HasTicks()) {
    ShowMessage(u"未选择需归档项目！"_s);
    return;
  }
  if (TakeParameters(parameters)) Transfer();
}

bool FrmArchive::TakeParameters(Parameters parameters) {
  if (parameters == Parameters::FromPanel) {
    const bool complete = fields_->Read();
    status_->ShowNotice(fields_->Note());
    return complete;
  }
  const ArchiveParameters asked = AskArchiveParameters(list_->Table(), Target());
  status_->ShowNotice(asked.note);
  return asked.confirmed;
}

void FrmArchive::Transfer() {
  ArchiveOrder order;
  order.source = list_->Table();
  order.destination = Target();
  order.statement = records_.Source();
  order.ticked = list_->Ticked();
  order.withOriginals = takeOriginals_->isChecked();
  const ArchiveOutcome outcome = TransferRecords(order, status_);
  if (outcome.count > 0) {
    list_->ShowNone();  // what has gone is not shown either when the rest cannot be read
    list_->Reload();
  } else if (outcome.isRun) {
    ShowMessage(
        {u"对数据进行归档操作不成功！\n\r请检查数据值和权限！"_s, MessageFlag::Critical, windowTitle(), {}, {}});
  }
  tickAll_->setChecked(false);
  if (!outcome.note.isEmpty()) status_->ShowNotice(outcome.note);
}

}  // namespace folvane
