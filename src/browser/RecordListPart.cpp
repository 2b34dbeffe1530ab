#include "browser/RecordListPart.h"

#include <QHeaderView>
#include <algorithm>
#include <utility>

#include <folvane/HostServices.h>

#include "browser/BrowserCommands.h"
#include "browser/BrowserState.h"
#include "browser/BrowserStatus.h"
#include "browser/ColumnWidths.h"
#include "browser/CommandTrap.h"
#include "browser/OriginalsView.h"
#include "records/ColumnSort.h"
#include "records/ListColumns.h"
#include "records/RecordStatement.h"
#include "records/TableRights.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/RecordListView.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

Recordset& Records() { return Shared().CurrentRecords; }

}  // namespace

RecordListPart::RecordListPart(const BrowserParts& parts)
    : parts_(parts), pages_(Records(), parts.State.List, [&status = parts.Status](int done, int maximum) {
        status.ShowProgress(done, maximum);
      }) {
  choice_ = new ChoiceRelay(&parts_.List, [this](const QModelIndex& index) { ChooseRow(index.row() + 1); });
  parts_.List.SetKeyHandler([this](int key) { return HandleKey(key); });
  ConnectGuarded(parts_.List.header(), &QHeaderView::sectionClicked, &parts_.List,
                 [this](int column) { SortBy(column); });
}

void RecordListPart::Clear() {
  parts_.Originals.Clear();
  KeepColumnWidths();
  parts_.State.List.SetColumns({});
  parts_.State.Records = ListRecords::NotOpened;
  parts_.State.ShownFilter.clear();
}

void RecordListPart::ShowColumns() {
  BuildColumns(parts_.State.List, parts_.State.CurrTable);
  const QHash<QString, int> kept = ReadColumnWidths(parts_.State.CurrTable);
  const std::vector<ListColumn>& columns = parts_.State.List.Columns();
  QHeaderView& header = *parts_.List.header();
  for (size_t at = 0; at < columns.size(); ++at) {
    header.resizeSection(int(at), kept.value(columns[at].key.toUpper(), DesignedWidth(parts_.List, columns[at].width)));
  }
  const int last = int(columns.size()) - 1;
  header.setSectionResizeMode(QHeaderView::Interactive);
  header.resizeSection(last, 1);
  header.setSectionResizeMode(last, QHeaderView::Fixed);
  widthsOf_ = parts_.State.CurrTable;
}

void RecordListPart::KeepColumnWidths() {
  if (widthsOf_.isEmpty()) return;
  const std::vector<ListColumn>& columns = parts_.State.List.Columns();
  QHash<QString, int> widths;
  for (size_t at = 0; at + 1 < columns.size(); ++at) {
    const int width = parts_.List.header()->sectionSize(int(at));
    if (width != DesignedWidth(parts_.List, columns[at].width)) widths.insert(columns[at].key.toUpper(), width);
  }
  if (widths != ReadColumnWidths(widthsOf_)) SaveColumnWidths(widthsOf_, widths);
  widthsOf_.clear();
}

void RecordListPart::Open(Recordset& records, const QString& order) const {
  const TableParameters& parameters = parts_.State.Parameters;
  const QString condition =
      JoinedWithRights(parameters.Selected(Parameter::RowLimit), parameters.Selected(Parameter::Filter));
  records.SetTextOrder(Services().sortByPinyin ? TextOrder::Pinyin : TextOrder::Plain);
  records.Open(RecordStatement(parts_.State.CurrTable, condition, order), SharedConnection());
}

void RecordListPart::OpenRecords() {
  if (Records().IsOpen()) Records().Close();
  parts_.State.RecordCount = 0;
  try {
    Open(Records(), parts_.State.Parameters.Selected(Parameter::Order));
  } catch (const std::exception&) {
    Refused();
    throw;
  }
  Opened();
}

// The records in view stay open until the statement in the new order has succeeded.
void RecordListPart::OpenInOrder(const QString& order) {
  Recordset ordered;
  Open(ordered, order);
  Records() = std::move(ordered);
  parts_.State.Parameters.Set(parts_.State.Parameters.SelectedRow(), Parameter::Order, order);
  Opened();
}

void RecordListPart::Opened() {
  BrowserState& state = parts_.State;
  state.RecordCount = Records().RecordCount();
  state.ShownFilter = state.Parameters.Selected(Parameter::Filter);
  taken_.insert(state.Parameters.SelectedRow(), state.ShownFilter);
  state.Untaken.remove(state.Parameters.SelectedRow());
  if (std::exchange(state.Records, ListRecords::Opened) == ListRecords::Refused) EnableCommands();
}

void RecordListPart::Refused() {
  BrowserState& state = parts_.State;
  const int row = state.Parameters.SelectedRow();
  state.ShownFilter = state.Parameters.Selected(Parameter::Filter);
  state.Records = ListRecords::Refused;
  if (const auto before = taken_.constFind(row); before != taken_.constEnd()) {
    state.Parameters.Set(row, Parameter::Filter, *before);
  } else {
    state.Untaken.insert(row, state.ShownFilter);
  }
  parts_.Commands.EnableEntries({u"mnu_File1_Add"_s, u"mnu_Tool1_BUpdate"_s, u"mnu_Tool3_Sort"_s}, false);
  parts_.Commands.EnableKeys({u"NEW"_s}, false);
}

void RecordListPart::ShowFromStart() {
  const BusyPointer busy;
  parts_.State.List.ClearRows();
  parts_.Status.ShowNotice({});
  try {
    OpenRecords();
  } catch (const std::exception&) {
    ShowEmpty();
    throw;
  }
  ShowAt({});
}

void RecordListPart::ShowEmpty() {
  parts_.State.List.ClearRows();
  parts_.Originals.Clear();
  UpdateCommands();
}

void RecordListPart::ShowFromCursor() {
  pages_.Refill();
  if (parts_.State.List.Count() > 0) {
    SelectRow(1);
    return;
  }
  ShowEmpty();
}

void RecordListPart::ShowInOrder(const QString& order, const QString& key) {
  const BusyPointer busy;
  parts_.Status.ShowNotice({});
  OpenInOrder(order);
  ShowAt(key);
}

// An edit that the entry window left open belongs to nobody any more.
void RecordListPart::Reload(const QString& key) {
  const BusyPointer busy;
  if (!Records().IsOpen()) {
    ShowEmpty();
    return;
  }
  if (Records().EditMode() != EditModeKind::None) Records().CancelUpdate();
  Records().Requery();
  parts_.State.RecordCount = Records().RecordCount();
  ShowAt(key);
}

QString RecordListPart::SelectedKey() const { return parts_.State.List.KeyOf(parts_.List.CurrentRow() - 1); }

QStringList RecordListPart::SelectedKeys() const {
  const QItemSelectionModel& selection = *parts_.List.selectionModel();
  QStringList keys;
  for (int row = 0; row < parts_.State.List.Count(); ++row) {
    if (selection.isRowSelected(row)) keys.append(parts_.State.List.KeyOf(row));
  }
  return keys;
}

void RecordListPart::SelectRow(int row) {
  choice_->SelectSilently(parts_.State.List.index(row - 1, 0));
  ChooseRow(row);
}

void RecordListPart::ChooseRow(int row) {
  pages_.PositionOn(parts_.State.List.KeyOf(row - 1));
  ShowOriginals();
  UpdateCommands();
}

void RecordListPart::ShowOriginals() {
  parts_.Originals.Clear();
  if (parts_.List.CurrentRow() > 0) parts_.Originals.ShowOriginals(ReadOriginals(SelectedKey()));
}

void RecordListPart::GoToRecord(qint64 position) {
  if (parts_.List.CurrentRow() == 0) return;
  const BusyPointer busy;
  const int row = pages_.GoTo(position, parts_.List.CurrentRow());
  if (row > 0) {
    SelectRow(row);
  } else if (parts_.State.List.Count() == 0) {
    UpdateCommands();
  }
}

void RecordListPart::NextPage() { GoToRecord(Records().AbsolutePosition() + kPageSize); }

void RecordListPart::PreviousPage() { GoToRecord(std::max<qint64>(Records().AbsolutePosition() - kPageSize, 1)); }

void RecordListPart::LastRecord() { GoToRecord(parts_.State.RecordCount); }

bool RecordListPart::HandleKey(int key) {
  const int row = parts_.List.CurrentRow();
  if (row == 0 || !Records().IsOpen()) return false;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    enter_();
    return true;
  }
  const int step = key == Qt::Key_PageUp || key == Qt::Key_PageDown ? kPageSize : 1;
  const bool back = key == Qt::Key_Up || key == Qt::Key_PageUp;
  const bool forward = key == Qt::Key_Down || key == Qt::Key_PageDown;
  const qint64 position = Records().AbsolutePosition();
  if (back && row == 1 && parts_.Commands.IsEntryEnabled(u"mnu_Goto2_PPage"_s)) {
    GoToRecord(std::max<qint64>(position - step, 1));
    return true;
  }
  if (forward && row + step > parts_.State.List.Count()) {
    GoToRecord(position + step);
    return true;
  }
  return false;
}

void RecordListPart::SortBy(int column) {
  RecordListModel& list = parts_.State.List;
  if (list.Count() == 0) return;
  const BusyPointer busy;
  const QString key = SelectedKey();
  const QString before = parts_.State.Parameters.Selected(Parameter::Order);
  const QString order = OrderAfterClick(list, column, before);
  parts_.Status.ShowNotice({});
  RunTrapped(parts_.Status, [&] {
    OpenInOrder(order);
    MarkOrder(list, column, before, order);
    ShowAt(key);
    SaveOrder(parts_.State.CurrTable, order);
  });
}

void RecordListPart::ShowAt(const QString& key) {
  pages_.PositionOnOrFirst(key);
  const qint64 position = Records().AbsolutePosition();
  ShowFromCursor();
  const int before = pages_.FillUpBefore(position);
  if (before == 0) return;
  choice_->SelectSilently(parts_.State.List.index(before, 0));
  pages_.PositionOn(SelectedKey());
}

}  // namespace folvane
