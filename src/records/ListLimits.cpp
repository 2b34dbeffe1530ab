#include "records/ListLimits.h"

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "records/ClassTree.h"
#include "records/FilterInWords.h"
#include "records/ListOrder.h"
#include "records/RecordList.h"
#include "records/TableParameters.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKeyColumn = u"ArchiveID"_s;

// Read without a statement of ours; a connection that is gone has been told already.
bool LacksKey(const QString& table) {
  try {
    const TableInfo* info = DatabaseSession::Of(*SharedConnection()).Table(table);
    return info && info->IndexOf(kKeyColumn) < 0;
  } catch (const DataError&) {
    return false;
  }
}

}  // namespace

QString ListLimits::FilterText() const {
  const QString& filter = list_.ShownFilter();
  const FilterInWords told = InWords(filter, [this](const QString& field) { return CaptionOf(field); });
  if (told.kind.isEmpty()) return {};
  return told.kind + u"："_s + (told.words.isEmpty() ? words_.value(filter, filter) : told.words);
}

QString ListLimits::RightsText() const {
  if (parameters_.Selected(Parameter::RowLimit).isEmpty()) return {};
  const QString words = parameters_.Selected(Parameter::RightsText).trimmed();
  return words.isEmpty() ? u"部分记录"_s : words;
}

QString ListLimits::EmptyListHint() const {
  if (list_.State() == ListRecords::Refused) return RefusedHint();
  if (list_.State() != ListRecords::Opened || !list_.Records().IsOpen()) return {};
  if (!list_.HasFieldColumns()) {
    return TableCaption() + u"没有列表列：请在 ListViewFormat 中为表 "_s + list_.Table() + u" 登记要显示的列。"_s;
  }
  if (list_.Rows().Count() > 0) return {};
  return list_.RecordCount() > 0 ? UnshownHint() : NoRecordsHint();
}

QString ListLimits::CaptionOf(const QString& field) const {
  const int column = list_.Rows().FindColumn(field);
  if (column < 0) return captionOf_ ? captionOf_(field) : QString();
  return WithoutArrows(list_.Rows().Columns()[size_t(column)].caption);
}

QString ListLimits::TableCaption() const {
  const int node = parameters_.Selected(Parameter::Node).toInt();
  return u"表“"_s + (node == 0 ? list_.Table() : tree_.Node(node).text) + u"”"_s;
}

QString ListLimits::KeyHint() const {
  return TableCaption() + u"没有主键列 "_s + kKeyColumn + u"，其记录不能显示：请先为表 "_s + list_.Table() +
         u" 建立该列。"_s;
}

QString ListLimits::RefusedHint() const {
  if (LacksKey(list_.Table())) return KeyHint();
  const QString failed = u"未能打开"_s + TableCaption() + u"的记录。"_s;
  if (!list_.ShownFilter().isEmpty()) return failed + u"按 F5 刷新以取消上面的条件，显示全部。"_s;
  const bool isOrdered = !OrdersByKey(parameters_.Selected(Parameter::Order));
  return failed +
         (offersCommands_ && isOrdered ? u"按 F5 刷新以重试，或按 Ctrl+T 按其他字段排序。"_s : u"按 F5 刷新以重试。"_s);
}

// Records are there, and none could be shown.
QString ListLimits::UnshownHint() const {
  const FieldList fields = list_.Records().Fields();
  if (fields.IndexOf(kKeyColumn) < 0) return KeyHint();
  for (const ListColumn& column : list_.Rows().Columns()) {
    if (column.key.isEmpty() || fields.IndexOf(column.key) >= 0) continue;
    return TableCaption() + u"没有列表列“"_s + WithoutArrows(column.caption) + u"”的字段 "_s + column.key +
           u"：请在 ListViewFormat 中改正。"_s;
  }
  return u"记录未能加载到列表。按 F5 刷新以重试。"_s;
}

QString ListLimits::NoRecordsHint() const {
  const QString limit = parameters_.Selected(Parameter::RowLimit);
  if (limit == u"1 = 2"_s) return u"您没有查看"_s + TableCaption() + u"的权限，请与管理员联系。"_s;
  const bool mayAdd = offersCommands_ && parameters_.Grants().edit;
  if (!list_.ShownFilter().isEmpty()) {
    return u"当前条件下没有记录。按 F5 刷新以显示全部"_s + (mayAdd ? u"，或按 Ctrl+N 新增。"_s : u"。"_s);
  }
  const QString none = limit.isEmpty() ? TableCaption() + u"中还没有记录。"_s : u"没有您有权查看的记录。"_s;
  return none + (mayAdd ? u"按 Ctrl+N 新增。"_s : QString());
}

void ShowOpeningFailure(const RecordList& list, const std::exception& error) {
  QString note;
  if (list.State() == ListRecords::Refused && !list.ShownFilter().isEmpty()) {
    note = u"未能按此条件打开列表："_s + list.ShownFilter() + u"\n按“刷新”(F5) 可取消此条件，显示全部记录。"_s;
  }
  ShowMessage({u"程序出错，请将下列出错提示向程序供应商联系！"_s + ErrorText(error), MessageFlag::Critical,
               kSystemTitle, note, ErrorDetails(error)});
}

}  // namespace folvane
