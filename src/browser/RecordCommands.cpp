#include "browser/RecordCommands.h"

#include <QCoreApplication>
#include <QTreeView>

#include "browser/BrowserState.h"
#include "browser/CommandTrap.h"
#include "browser/RecordListPart.h"
#include "bulk/FrmReplace.h"
#include "entry/FrmInput.h"
#include "originals/OriginalStore.h"
#include "records/RecordStatement.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/RecordListView.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void RecordCommands::Add() {
  if (!parts_.State.CurrTable.isEmpty() && Shared().CurrentRecords.IsOpen()) OpenEntry(u"1"_s);
}

void RecordCommands::Change() {
  if (!parts_.State.CurrTable.isEmpty() && parts_.List.CurrentRow() > 0) OpenEntry(u"0"_s);
}

void RecordCommands::OpenEntry(const QString& addOnOpen) {
  RecordListView& list = parts_.List;
  {
    const LoadedWindow<FrmInput> entry;
    entry->CurrTable = parts_.State.CurrTable;
    entry->AddOnOpen = addOnOpen;
    entry->Context = {parts_.Tree.currentIndex().data().toString(), &parts_.State.Parameters,
                      [&list](const QString& key) { list.setProperty("Tag", key); }, OpenReplace};
    entry->Open();
  }
  list_.EnableCommands();
  QCoreApplication::processEvents();
  list_.Reload(list.property("Tag").toString());
}

void RecordCommands::Delete() {
  RunTrapped(parts_.Status, [this] { DeleteSelected(); });
}

void RecordCommands::DeleteSelected() {
  const QStringList keys = list_.SelectedKeys();
  if (parts_.State.CurrTable.isEmpty() || keys.isEmpty()) return;
  parts_.Status.ShowNotice(u"选中 %1 条记录"_s.arg(keys.size()));
  const int answer =
      ShowMessage(u"确定要删除当前文件及相关原文吗?"_s, MessageFlag::YesNo | MessageFlag::Information, kSystemTitle);
  parts_.Status.ShowNotice({});
  if (answer != Answer::Yes) return;
  const BusyPointer busy;
  DeleteOriginals(u" Where RecordID "_s + InKeys(keys));
  const qint64 gone =
      SharedConnection()->Execute(u"Delete from "_s + parts_.State.CurrTable + u" Where ArchiveId "_s + InKeys(keys));
  list_.Reload();
  parts_.Status.ShowNotice(u"已删除 %1 条记录"_s.arg(gone));
}

}  // namespace folvane
