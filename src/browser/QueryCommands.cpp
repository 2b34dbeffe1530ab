#include "browser/QueryCommands.h"

#include <algorithm>

#include "browser/BrowserState.h"
#include "browser/BrowserStatus.h"
#include "browser/RecordListPart.h"
#include "browser/SearchBar.h"
#include "bulk/FrmRecordMove.h"
#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "query/FrmReadOrder.h"
#include "records/ColumnSort.h"
#include "shell/LoadedWindow.h"
#include "shell/ModalWindow.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

int AskNumber(bool ofPage) {
  const LoadedWindow<FrmRecordMove> window;
  window->MoveType = ofPage;
  ShowModal(*window);
  return window->MoveNumber;
}

}  // namespace

void QueryCommands::QuickSearch() {
  const std::optional<QString> condition = parts_.Search.Condition();
  if (!condition) return;
  parts_.Search.RememberValue(parts_.State.CurrTable);
  Show(*condition);
}

void QueryCommands::SimpleQuery() {
  if (parts_.State.CurrTable.isEmpty()) return;
  parts_.State.Parameters.SetTag(QString());
  AskedQuery query = AskSimpleQuery(parts_.State.CurrTable);
  if (query.words.isEmpty()) query.words = u"简单查询 "_s + query.condition;
  Show(query);
}

void QueryCommands::CompoundQuery() {
  if (parts_.State.CurrTable.isEmpty()) return;
  parts_.State.Parameters.SetTag(QString());
  Show(AskCompoundQuery(parts_.State.CurrTable));
}

// What a query leaves out is to be told as long as its filter is in force.
void QueryCommands::Show(const AskedQuery& query) {
  parts_.State.Parameters.SetLeftOut(query.condition, query.ignored);
  Show(query.condition, query.words.trimmed());
  if (!query.ignored.isEmpty()) parts_.Status.ShowNotice(LeftOutNote(query.ignored));
}

void QueryCommands::Show(const QString& filter, const QString& words) {
  if (filter.isEmpty()) return;
  if (!words.isEmpty()) parts_.State.QueryWords.insert(filter, words);
  parts_.State.Parameters.Set(parts_.State.Parameters.SelectedRow(), Parameter::Filter, filter);
  list_.ShowFromStart();
}

void QueryCommands::Refresh() {
  if (parts_.State.CurrTable.isEmpty()) return;
  parts_.State.Parameters.SetTag(QString());
  parts_.State.Parameters.Set(parts_.State.Parameters.SelectedRow(), Parameter::Filter, QString());
  list_.EnableCommands();
  list_.ShowFromStart();
}

void QueryCommands::Sort() {
  BrowserState& state = parts_.State;
  if (state.List.Count() == 0) return;
  const QString key = list_.SelectedKey();
  const QString order = AskOrder(state.CurrTable, state.Parameters.Selected(Parameter::Order));
  if (order.isEmpty()) return;
  list_.ShowInOrder(order, key);
  for (int column = 0; column < state.List.columnCount(); ++column) {
    state.List.SetCaption(column, WithoutArrows(state.List.Columns()[size_t(column)].caption));
  }
}

void QueryCommands::SetBrowseOrder() {
  const LoadedWindow<FrmReadOrder> window;
  window->vsFlag = 1;
  window->Open();
}

void QueryCommands::GoToNumber(bool byPage) {
  const int number = AskNumber(byPage);
  if (number != 0) list_.GoToRecord(std::min<qint64>(number, parts_.State.RecordCount));
}

}  // namespace folvane
