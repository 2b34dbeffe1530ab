#include "browser/BulkCommands.h"

#include "browser/BrowserState.h"
#include "browser/CommandTrap.h"
#include "browser/RecordListPart.h"
#include "bulk/FrmBactchUpdate.h"
#include "originals/OriginalStore.h"
#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/RecordListView.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kNoRow = -1;

// What a deletion would take, told beside its question.
QString CountText(const QString& table, const AskedQuery& query) {
  const BusyPointer busy;
  try {
    Recordset count;
    count.Open(u"Select Count(*) From "_s + table + u" Where "_s + query.condition, SharedConnection());
    const QString text = u"将删除 %1 条记录"_s.arg(count.Fields().Item(0).Text());
    return query.words.isEmpty() ? text : text + u"："_s + query.words.trimmed();
  } catch (const std::exception& error) {
    return u"未能统计将删除的记录数：%1"_s.arg(ErrorText(error));
  }
}

}  // namespace

void BulkCommands::Delete() {
  RunTrapped(parts_.Status, [this] { DeleteQueried(); });
}

void BulkCommands::DeleteQueried() {
  if (parts_.State.CurrTable.isEmpty()) return;
  const QString key = list_.SelectedKey();
  const AskedQuery query = AskCompoundQuery(parts_.State.CurrTable);
  const QString leftOut = LeftOutNote(query.ignored);
  parts_.Status.ShowNotice(query.condition.isEmpty() ? leftOut : QString());
  if (query.condition.isEmpty()) return;
  QStringList notes{CountText(parts_.State.CurrTable, query), leftOut};
  notes.removeAll(QString());
  const MessageRequest question{u"确定要批量删除这些记录以及相关原文吗？"_s,
                                MessageFlag::OkCancel + MessageFlag::Warning + MessageFlag::SecondIsDefault,
                                u"警告"_s,
                                notes.join(u'\n'),
                                {}};
  if (ShowMessage(question) != Answer::Ok) return;
  const BusyPointer busy;
  const qint64 gone = DeleteWhere(query.condition);
  list_.Reload(key);
  parts_.Status.ShowNotice(u"已删除 %1 条记录"_s.arg(gone));
}

qint64 BulkCommands::DeleteWhere(const QString& condition) {
  const QString selected = parts_.State.CurrTable + u" Where "_s + condition;
  DeleteOriginals(u" Where RecordID In (Select ArchiveID From "_s + selected + u")"_s);
  return SharedConnection()->Execute(u"Delete From "_s + selected);
}

void BulkCommands::Update() {
  const QString key = list_.SelectedKey();
  bool changed = false;
  {
    const LoadedWindow<FrmBactchUpdate> window;
    window->TableName = parts_.State.CurrTable;
    window->vsPos = parts_.List.CurrentRow() > 0 ? parts_.List.CurrentRow() : kNoRow;
    window->Parameters = &parts_.State.Parameters;
    window->Open();
    changed = window->IsSucceed;
  }
  if (changed) list_.Reload(key);
}

}  // namespace folvane
