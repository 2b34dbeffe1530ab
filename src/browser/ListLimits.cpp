#include "browser/ListLimits.h"

#include <QTreeView>

#include <folvane/DataError.h>

#include "browser/BrowserState.h"
#include "browser/SearchBar.h"
#include "data/DatabaseSession.h"
#include "records/ColumnSort.h"
#include "records/FilterInWords.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKeyColumn = u"ArchiveID"_s;

QString CaptionOf(const BrowserParts& parts, const QString& field) {
  const int column = parts.State.List.FindColumn(field);
  if (column < 0) return parts.Search.CaptionOf(field);
  return WithoutArrows(parts.State.List.Columns()[size_t(column)].caption);
}

QString TableCaption(const BrowserState& state) {
  const int node = state.Parameters.Selected(Parameter::Node).toInt();
  return u"表“"_s + (node == 0 ? state.CurrTable : state.Tree.Node(node).text) + u"”"_s;
}

// Read without a statement of ours; a connection that is gone has been told already.
bool LacksKey(const QString& table) {
  try {
    const TableInfo* info = DatabaseSession::Of(*SharedConnection()).Table(table);
    return info && info->IndexOf(kKeyColumn) < 0;
  } catch (const DataError&) {
    return false;
  }
}

QString KeyHint(const BrowserState& state) {
  return TableCaption(state) + u"没有主键列 "_s + kKeyColumn + u"，其记录不能显示：请先为表 "_s + state.CurrTable +
         u" 建立该列。"_s;
}

QString RefusedHint(const BrowserState& state) {
  if (LacksKey(state.CurrTable)) return KeyHint(state);
  const QString failed = u"未能打开"_s + TableCaption(state) + u"的记录。"_s;
  return failed + (state.ShownFilter.isEmpty() ? u"按 F5 刷新以重试。"_s : u"按 F5 刷新以取消上面的条件，显示全部。"_s);
}

// Records are there, and none could be shown.
QString UnshownHint(const BrowserState& state) {
  const FieldList fields = Shared().CurrentRecords.Fields();
  if (fields.IndexOf(kKeyColumn) < 0) return KeyHint(state);
  for (const ListColumn& column : state.List.Columns()) {
    if (fields.IndexOf(column.key) >= 0) continue;
    return TableCaption(state) + u"没有列表列“"_s + WithoutArrows(column.caption) + u"”的字段 "_s + column.key +
           u"：请在 ListViewFormat 中改正。"_s;
  }
  return u"记录未能加载到列表。按 F5 刷新以重试。"_s;
}

QString NoRecordsHint(const BrowserState& state) {
  const QString limit = state.Parameters.Selected(Parameter::RowLimit);
  if (limit == u"1 = 2"_s) return u"您没有查看"_s + TableCaption(state) + u"的权限，请与管理员联系。"_s;
  const bool mayAdd = state.Parameters.Grants().edit;
  if (!state.ShownFilter.isEmpty()) {
    return u"当前条件下没有记录。按 F5 刷新以显示全部"_s + (mayAdd ? u"，或按 Ctrl+N 新增。"_s : u"。"_s);
  }
  const QString none = limit.isEmpty() ? TableCaption(state) + u"中还没有记录。"_s : u"没有您有权查看的记录。"_s;
  return none + (mayAdd ? u"按 Ctrl+N 新增。"_s : QString());
}

// No table is in view.
QString ChoiceHint(const BrowserState& state, int node) {
  const QString choose = u"请在左边的类目树中选择一个表。"_s;
  if (node == 0) return choose;
  const ClassTreeNode& chosen = state.Tree.Node(node);
  if (chosen.image != NodeImage::Close || state.Builder.LacksTables(node)) {
    return u"未能打开“"_s + chosen.text + u"”。请再次点击它以重试。"_s;
  }
  if (chosen.parent == 0 || !chosen.children.empty()) return choose;
  return u"类目“"_s + chosen.text + u"”下没有表：请在 Design_TableRelation 中为它登记表。"_s;
}

}  // namespace

QString FilterText(const BrowserParts& parts) {
  const BrowserState& state = parts.State;
  const FilterInWords told =
      InWords(state.ShownFilter, [&parts](const QString& field) { return CaptionOf(parts, field); });
  if (told.kind.isEmpty()) return {};
  const QString asked = state.QueryWords.value(state.ShownFilter, state.ShownFilter);
  return told.kind + u"："_s + (told.words.isEmpty() ? asked : told.words);
}

QString LimitingRights(const BrowserParts& parts) {
  const TableParameters& parameters = parts.State.Parameters;
  if (parameters.Selected(Parameter::RowLimit).isEmpty()) return {};
  const QString words = parameters.Selected(Parameter::RightsText).trimmed();
  return words.isEmpty() ? u"部分记录"_s : words;
}

QString EmptyListHint(const BrowserParts& parts) {
  const BrowserState& state = parts.State;
  if (state.CurrTable.isEmpty()) return ChoiceHint(state, state.Tree.NodeAt(parts.Tree.currentIndex()));
  if (state.Records == ListRecords::Refused) return RefusedHint(state);
  if (state.Records != ListRecords::Opened || !Shared().CurrentRecords.IsOpen()) return {};
  if (state.List.columnCount() == 1) {
    return TableCaption(state) + u"没有列表列：请在 ListViewFormat 中为表 "_s + state.CurrTable +
           u" 登记要显示的列。"_s;
  }
  if (state.List.Count() > 0) return {};
  return state.RecordCount > 0 ? UnshownHint(state) : NoRecordsHint(state);
}

}  // namespace folvane
