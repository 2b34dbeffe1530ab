#include "browser/BulkCommands.h"

#include "bulk/FrmBactchUpdate.h"
#include "originals/OriginalStore.h"
#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "records/ListStatus.h"
#include "records/RecordList.h"
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
  status_.RunTrapped([this] { DeleteQueried(); });
}

void BulkCommands::DeleteQueried() {
  if (list_.Table().isEmpty()) return;
  const QString key = list_.SelectedKey();
  const AskedQuery query = AskCompoundQuery(list_.Table());
  const QString leftOut = LeftOutNote(query.ignored);
  status_.ShowNotice(query.condition.isEmpty() ? leftOut : QString());
  if (query.condition.isEmpty()) return;
  QStringList notes{CountText(list_.Table(), query), leftOut};
  notes.removeAll(QString());
  const MessageRequest question{u"确定要批量删除这些记录以及相关原文吗？"_s,
                                MessageFlag::OkCancel + MessageFlag::Warning + MessageFlag::SecondIsDefault,
                                u"警告"_s,
                                notes.join(u'\n'),
                                {}};
  if (ShowMessage(question) != Answer::Ok) return;
  const BusyPointer busy;
  const QString selected = list_.Table() + u" Where "_s + query.condition;
  const QString left = DeleteOriginalsAndTell(u" Where RecordID In (Select ArchiveID From "_s + selected + u")"_s);
  const qint64 gone = SharedConnection()->Execute(u"Delete From "_s + selected);
  list_.Reload(key);
  status_.ShowDeleted(gone, left);
}

void BulkCommands::Update() {
  const QString key = list_.SelectedKey();
  list_.HoldFilter();
  bool changed = false;
  {
    const LoadedWindow<FrmBactchUpdate> window;
    window->TableName = list_.Table();
    // The list may begin in the midst of the records.
    const qint64 position = list_.View().CurrentRow() > 0 ? list_.Records().AbsolutePosition() : 0;
    window->vsPos = position > 0 ? int(position) : kNoRow;
    window->Parameters = &parameters_;
    window->Open();
    changed = window->IsSucceed;
  }
  if (changed) list_.Reload(key);
}

}  // namespace folvane
