#include "records/RecordList.h"

#include <QItemSelectionModel>
#include <algorithm>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "records/ListOrder.h"
#include "records/RecordStatement.h"
#include "records/TableParameters.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/RecordListView.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

RecordList::RecordList(RecordListView& view, Recordset& records, TableParameters& parameters, News news)
    : view_(view),
      records_(records),
      parameters_(parameters),
      news_(std::move(news)),
      pages_(records_, model_, news_.progress, news_.failure),
      widths_(view_, model_) {
  model_.SetDecoration([](int icon) { return Icon(u"row%1"_s.arg(icon)); });
  view_.setModel(&model_);
  choice_ = new ChoiceRelay(&view_, [this](const QModelIndex& index) { ChooseRow(index.row() + 1); });
  view_.SetKeyHandler([this](int key) { return HandleKey(key); });
}

void RecordList::NumberTicks() {
  model_.NumberTicks();
  ConnectGuarded(&model_, &QAbstractItemModel::dataChanged, &view_,
                 [this](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
                   FollowTick(first, last, roles);
                 });
}

// Several rows that are ticked by one key stay selected.
void RecordList::FollowTick(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
  if (!roles.contains(Qt::CheckStateRole)) return;
  if (first == last && !view_.selectionModel()->isRowSelected(first.row())) SelectRow(first.row() + 1);
  news_.ticked();
}

void RecordList::Clear() {
  table_.clear();
  widths_.Keep();
  model_.SetColumns({});
  state_ = ListRecords::NotOpened;
  shownFilter_.clear();
}

void RecordList::ShowColumns(const QString& table) {
  table_ = table;
  BuildColumns(model_, table);
  widths_.Show(table);
}

void RecordList::Open(Recordset& records, const QString& order) const {
  const QString condition =
      JoinedWithRights(parameters_.Selected(Parameter::RowLimit), parameters_.Selected(Parameter::Filter));
  records.SetTextOrder(Services().sortByPinyin ? TextOrder::Pinyin : TextOrder::Plain);
  records.Open(RecordStatement(table_, condition, order), SharedConnection());
}

void RecordList::OpenRecords() {
  if (records_.IsOpen()) records_.Close();
  try {
    Open(records_, parameters_.Selected(Parameter::Order));
    Opened();
  } catch (const std::exception&) {
    if (records_.IsOpen()) records_.Close();
    Refused();
    throw;
  }
}

// The records in view stay open until the statement in the new order has succeeded.
void RecordList::OpenInOrder(const QString& order) {
  Recordset ordered;
  Open(ordered, order);
  records_ = std::move(ordered);
  parameters_.Set(parameters_.SelectedRow(), Parameter::Order, order);
  Opened();
}

void RecordList::Opened() {
  const int row = parameters_.SelectedRow();
  if (news_.opened) news_.opened(records_);
  state_ = ListRecords::Opened;
  shownFilter_ = parameters_.Selected(Parameter::Filter);
  taken_.insert(row, shownFilter_);
  untaken_.remove(row);
}

void RecordList::Refused() {
  const int row = parameters_.SelectedRow();
  state_ = ListRecords::Refused;
  shownFilter_ = parameters_.Selected(Parameter::Filter);
  if (const auto before = taken_.constFind(row); before != taken_.constEnd()) {
    parameters_.Set(row, Parameter::Filter, *before);
  } else {
    untaken_.insert(row, shownFilter_);
  }
}

void RecordList::HoldFilter() {
  if (state_ == ListRecords::Opened) parameters_.Set(parameters_.SelectedRow(), Parameter::Filter, shownFilter_);
}

QString RecordList::TakenFilter() const {
  const QString filter = parameters_.Selected(Parameter::Filter);
  return filter == untaken_.value(parameters_.SelectedRow()) ? QString() : filter;
}

void RecordList::ShowWhere(const QString& filter) {
  parameters_.Set(parameters_.SelectedRow(), Parameter::Filter, filter);
  ShowFromStart();
}

void RecordList::ShowFromStart() {
  const BusyPointer busy;
  model_.ClearRows();
  news_.opening();
  try {
    OpenRecords();
  } catch (const std::exception&) {
    ShowNone();
    throw;
  }
  ShowAt({});
}

void RecordList::ShowNone() {
  model_.ClearTicks();
  model_.ClearRows();
  news_.chosen();
}

void RecordList::ShowFromCursor() {
  pages_.Refill();
  if (model_.Count() > 0) {
    SelectRow(1);
  } else {
    ShowNone();
  }
}

void RecordList::ShowInOrder(const QString& order) {
  const BusyPointer busy;
  const QString key = SelectedKey();
  news_.opening();
  OpenInOrder(order);
  ShowAt(key);
  UnmarkOrder(model_);
}

void RecordList::SortByColumn(int column) {
  if (model_.Count() == 0 || model_.Columns().at(size_t(column)).key.isEmpty()) return;
  const BusyPointer busy;
  const QString key = SelectedKey();
  const QString before = parameters_.Selected(Parameter::Order);
  const QString order = OrderAfterClick(model_, column, before);
  news_.opening();
  OpenInOrder(order);
  MarkOrder(model_, column, before, order);
  ShowAt(key);
  SaveOrder(table_, order);
}

// An edit that another window left open belongs to nobody any more.
void RecordList::Reload(const QString& key) {
  const BusyPointer busy;
  if (!records_.IsOpen()) {
    ShowNone();
    return;
  }
  if (records_.EditMode() != EditModeKind::None) records_.CancelUpdate();
  records_.Requery();
  ShowAt(key);
}

void RecordList::ShowAt(const QString& key) {
  model_.ClearTicks();
  pages_.PositionOnOrFirst(key);
  const qint64 position = records_.AbsolutePosition();
  ShowFromCursor();
  const int before = pages_.FillUpBefore(position);
  if (before == 0) return;
  choice_->SelectSilently(model_.index(before, 0));
  pages_.PositionOn(SelectedKey());
}

QString RecordList::SelectedKey() const { return model_.KeyOf(view_.CurrentRow() - 1); }

void RecordList::ShowOriginals(bool hasOriginals) {
  if (view_.CurrentRow() > 0) model_.ShowOriginals(view_.CurrentRow() - 1, hasOriginals);
}

QStringList RecordList::SelectedKeys() const {
  const QItemSelectionModel& selection = *view_.selectionModel();
  QStringList keys;
  for (int row = 0; row < model_.Count(); ++row) {
    if (selection.isRowSelected(row)) keys.append(model_.KeyOf(row));
  }
  return keys;
}

void RecordList::SelectRow(int row) {
  choice_->SelectSilently(model_.index(row - 1, 0));
  ChooseRow(row);
}

void RecordList::ChooseRow(int row) {
  pages_.PositionOn(model_.KeyOf(row - 1));
  news_.chosen();
}

void RecordList::GoToRecord(qint64 position) {
  if (view_.CurrentRow() == 0) return;
  const BusyPointer busy;
  const int row = pages_.GoTo(position, view_.CurrentRow());
  if (row > 0) {
    SelectRow(row);
  } else if (model_.Count() == 0) {
    news_.chosen();
  }
}

void RecordList::NextPage() { GoToRecord(records_.AbsolutePosition() + kPageSize); }

void RecordList::PreviousPage() { GoToRecord(std::max<qint64>(records_.AbsolutePosition() - kPageSize, 1)); }

// The view moves by itself as long as the row to go to is loaded.
bool RecordList::HandleKey(int key) {
  const int row = view_.CurrentRow();
  if (row == 0 || !records_.IsOpen()) return false;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    news_.entered();
    return true;
  }
  if (key == Qt::Key_Space && model_.IsTickable()) {
    view_.TickSelected();
    return true;
  }
  const int step = key == Qt::Key_PageUp || key == Qt::Key_PageDown ? kPageSize : 1;
  const bool back = key == Qt::Key_Up || key == Qt::Key_PageUp;
  const bool forward = key == Qt::Key_Down || key == Qt::Key_PageDown;
  const qint64 position = records_.AbsolutePosition();
  if (back && row == 1 && position > 1) {
    GoToRecord(std::max<qint64>(position - step, 1));
    return true;
  }
  if (forward && row + step > model_.Count()) {
    GoToRecord(position + step);
    return true;
  }
  return false;
}

}  // namespace folvane
