#include "browser/RecordCommands.h"

#include <QCoreApplication>
#include <QTreeView>

#include "bulk/FrmReplace.h"
#include "entry/FrmInput.h"
#include "flows/TransferIntoFlow.h"
#include "originals/OriginalStore.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
#include "records/RecordStatement.h"
#include "records/TableParameters.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/RecordListView.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void RecordCommands::Add() {
  if (list_.Records().IsOpen()) OpenEntry(u"1"_s);
}

void RecordCommands::Change() {
  if (list_.View().CurrentRow() > 0) OpenEntry(u"0"_s);
}

void RecordCommands::OpenEntry(const QString& addOnOpen) {
  RecordListView& view = list_.View();
  {
    const LoadedWindow<FrmInput> entry;
    entry->CurrTable = list_.Table();
    entry->AddOnOpen = addOnOpen;
    entry->Context = {tree_.currentIndex().data().toString(), &parameters_,
                      [&view](const QString& key) { view.setProperty("Tag", key); }, OpenReplace};
    entry->Open();
  }
  QCoreApplication::processEvents();
  list_.Reload(view.property("Tag").toString());
}

void RecordCommands::Delete() {
  status_.RunTrapped([this] { DeleteSelected(); });
}

void RecordCommands::DeleteSelected() {
  const QStringList keys = list_.SelectedKeys();
  if (keys.isEmpty()) return;
  status_.ShowNotice(u"选中 %1 条记录"_s.arg(keys.size()));
  const int answer =
      ShowMessage(u"确定要删除当前文件及相关原文吗?"_s, MessageFlag::YesNo | MessageFlag::Information, kSystemTitle);
  status_.ShowNotice({});
  if (answer != Answer::Yes) return;
  const BusyPointer busy;
  const QString left = DeleteOriginalsAndTell(u" Where RecordID "_s + InKeys(keys));
  const qint64 gone =
      SharedConnection()->Execute(u"Delete from "_s + list_.Table() + u" Where ArchiveId "_s + InKeys(keys));
  list_.Reload();
  status_.ShowDeleted(gone, left);
}

void RecordCommands::HandToFlow(const QString& flowTable) {
  for (const QString& key : list_.SelectedKeys()) {
    if (!TransferRecord(list_.Table(), key, flowTable)) return;
    list_.Reload(key);
  }
}

}  // namespace folvane
