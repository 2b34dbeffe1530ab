#include "browser/ArchiveCommands.h"

#include "archiving/ArchiveRecords.h"
#include "archiving/FrmArchive.h"
#include "archiving/FrmSelTbl.h"
#include "browser/OriginalsView.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/TableFields.h"
#include "widgets/RecordListView.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kTitleField = u"Amaintitle"_s;

}  // namespace

void ArchiveCommands::ToTarget() {
  if (list_.Table().isEmpty() || list_.SelectedKeys().isEmpty()) return;
  ArchiveOrder order;
  order.source = list_.Table();
  order.destination = parameters_.Selected(Parameter::Target);
  order.statement = list_.Records().Source();
  order.list = &list_.View();
  if (order.destination.isEmpty()) return status_.ShowNotice(u"该表没有设置归档的目标库"_s);
  const ArchiveOutcome outcome = ArchiveRecords(order, &status_);
  if (outcome.count > 0) {
    list_.Reload();
  } else if (outcome.isRun) {
    ShowMessage(u"您选择的文件不符合需要归档的条件！"_s);
  }
  status_.ShowNotice(outcome.note);
}

void ArchiveCommands::OpenWindow() {
  ShowArchiveWindow(list_.Table());
  if (!list_.Table().isEmpty()) list_.Reload();
}

void ArchiveCommands::Merge() {
  const QString key = list_.SelectedKey();
  if (list_.Table().isEmpty() || key.isEmpty()) return status_.ShowNotice(u"请先选中要保留的文件"_s);
  QString outcome;
  {
    const LoadedWindow<FrmSelTbl> window;
    window->TargetID = key;
    window->TargetTitle = TitleOfRecord();
    window->Open();
    outcome = window->Outcome;
  }
  ShowOriginalsAgain(key);
  status_.ShowNotice(outcome);
}

QString ArchiveCommands::TitleOfRecord() const {
  return FieldExists(list_.Records(), kTitleField) ? list_.Records()[kTitleField].Text() : QString();
}

// A record that had none before shows those that came with the next refresh.
void ArchiveCommands::ShowOriginalsAgain(const QString& key) {
  originals_.Clear();
  const int icon = list_.Rows().Row(list_.View().CurrentRow() - 1).icon;
  if (icon == RowIcon::FilledWithOriginals || icon == RowIcon::EmptyWithOriginals) originals_.ShowOriginalsOf(key);
}

}  // namespace folvane
