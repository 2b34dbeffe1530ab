#include "data/RecordsetState.h"

#include <algorithm>

#include <folvane/DataError.h>

#include "data/BatchWriter.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

RecordsetState::RecordsetState(QString source, std::shared_ptr<Connection> connection, LockType lock, OpenedRows opened)
    : source(std::move(source)), connection(std::move(connection)), lock(lock), rows(std::move(opened)) {
  view.Show(std::nullopt);
  GoFirst();
}

RecordsetState::~RecordsetState() = default;

RowId RecordsetState::CurrentRow() const {
  if (cursorState_ == CursorState::Row) return view.At(position_);
  throw DataError(DataErrorKind::Usage, cursorState_ == CursorState::Hole
                                            ? u"当前记录已被删除。"_s
                                            : u"没有当前记录：位置在第一条记录之前或最后一条记录之后。"_s);
}

RowId RecordsetState::SeenRow(qint64 position, int column) const {
  const RowId row = view.At(position);
  if (!rows.IsAtHand(row, column)) Bring(position);
  return row;
}

// Who goes on from page to page is likely to go further, and gets longer ones.
void RecordsetState::Bring(qint64 position) const {
  constexpr qint64 kUsual = 64, kMost = 1024;
  const bool goesOn = position == page_.end, goesBack = position == page_.begin - 1;
  const qint64 size = goesOn || goesBack ? std::min(page_.size * 2, kMost) : kUsual;
  const qint64 begin = std::max<qint64>(goesOn ? position : goesBack ? position - size + 1 : position - size / 2, 0);
  const qint64 end = std::min(begin + size, view.Count());
  rows.Load(view.Between(begin, end));
  page_ = {begin, end, size};
}

RowId RecordsetState::LivingRow() const {
  const RowId row = CurrentRow();
  if (!rows.IsRead(row)) Bring(position_);
  if (!IsOnGoneRow()) return row;
  throw DataError(DataErrorKind::Conflict, u"该记录已被其他用户删除。"_s, source);
}

void RecordsetState::PassGone(int step) {
  for (; HasRow(); Step(step)) {
    if (!rows.IsRead(CurrentRow())) Bring(position_);
    if (!IsOnGoneRow()) return;
  }
}

void RecordsetState::GoTo(qint64 position) {
  if (edit) EndEdit();
  position_ = position;
  cursorState_ = CursorState::Row;
}

void RecordsetState::GoEnd() {
  if (edit) EndEdit();
  position_ = view.Count();
  cursorState_ = view.Count() ? CursorState::Eof : CursorState::Empty;
}

void RecordsetState::GoBeforeStart() {
  if (edit) EndEdit();
  position_ = -1;
  cursorState_ = view.Count() ? CursorState::Bof : CursorState::Empty;
}

void RecordsetState::GoToRow(RowId row) {
  const qint64 position = view.PositionOf(row);
  if (position < 0 || position >= view.Count()) throw DataError(DataErrorKind::Usage, u"书签所指的记录已不存在。"_s);
  GoTo(position);
}

void RecordsetState::Step(qint64 count) {
  if (count == 0) {
    if (edit) EndEdit();
    return;
  }
  // From a hole the next row is the one that has moved up into it.
  const qint64 target = cursorState_ == CursorState::Hole && count > 0 ? position_ + count - 1 : position_ + count;
  if (target < 0)
    GoBeforeStart();
  else if (target >= view.Count())
    GoEnd();
  else
    GoTo(target);
}

const ColumnIndex& RecordsetState::IndexOf(int column) {
  const auto known = indexes_.find(column);
  return known != indexes_.end() ? known->second : indexes_.try_emplace(column, rows, column).first->second;
}

// The index knows the rows as they were read: those with another value since are left to a look at each.
qint64 RecordsetState::Find(const Condition& condition, qint64 from, SearchDirection direction) {
  constexpr qint64 kNear = 64;
  const int column = condition.Column();
  const bool forward = direction == SearchDirection::Forward;
  const auto holdsAt = [&](RowId row) { return condition.Holds(rows.Value(row, column)); };
  const auto key = condition.IndexKey();
  // Most of what is sought by key is near, and making an index costs more than a look at some rows.
  qint64 near = !key ? view.Count() : indexes_.contains(column) ? 0 : kNear;
  qint64 p = from;
  for (; near-- > 0 && p >= 0 && p < view.Count() && rows.IsAtHand(view.At(p), column); p += forward ? 1 : -1)
    if (holdsAt(view.At(p))) return p;
  if (p < 0 || p >= view.Count()) return -1;
  if (key && rows.Store().AreDistinct(column) && rows.GivenIn(column).empty()) {
    // So is what was looked at last, and it is the only one.
    for (qint64 at = std::max<qint64>(page_.begin, 0); at < std::min(page_.end, view.Count()); ++at)
      if ((forward ? at >= p : at <= p) && holdsAt(view.At(at))) return at;
  }

  qint64 best = -1;
  const auto isNearer = [&](RowId row) {
    const qint64 at = view.PositionOf(row);
    if (at < 0 || (forward ? at < p : at > p)) return false;
    return best < 0 || (forward ? at < best : at > best);
  };
  if (!key) {
    rows.Each({column}, [&](RowId row, auto valueOf) {
      if (isNearer(row) && condition.Holds(valueOf(column))) best = view.PositionOf(row);
    });
    return best;
  }
  const auto consider = [&](RowId row) {
    if (!isNearer(row) || !holdsAt(row)) return false;
    best = view.PositionOf(row);
    // In the order read the first hit forwards is the nearest.
    return forward && !view.List();
  };
  IndexOf(column).Each(*key, consider);
  for (const RowId row : rows.GivenIn(column)) consider(row);
  return best;
}

/// The rows that may meet a condition that an index serves, ascending.
std::vector<RowId> RecordsetState::AnchoredRows(const Condition& anchor) {
  std::vector<RowId> found = rows.GivenIn(anchor.Column());
  IndexOf(anchor.Column()).Each(*anchor.IndexKey(), [&](RowId row) {
    found.push_back(row);
    return false;
  });
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

std::vector<RowId> RecordsetState::RowsMeeting(const Criteria& criteria) {
  // Of a column that many rows share the values are read, not the rows.
  constexpr std::size_t kFew = 1000;
  std::vector<RowId> meeting;
  if (const Condition* anchor = criteria.Anchor()) {
    const std::vector<RowId> found = AnchoredRows(*anchor);
    if (rows.Store().IsWhole() || found.size() <= kFew) {
      rows.Load(found);
      for (const RowId row : found)
        if (rows.IsLive(row) && criteria.Holds([&](int column) { return rows.Value(row, column); }))
          meeting.push_back(row);
      return meeting;
    }
  }
  rows.Each(criteria.Columns(), [&](RowId row, auto valueOf) {
    if (criteria.Holds(valueOf)) meeting.push_back(row);
  });
  std::sort(meeting.begin(), meeting.end());
  return meeting;
}

void RecordsetState::Reshow() {
  std::optional<std::vector<RowId>> list;
  if (!filter.isEmpty()) list = RowsMeeting(Criteria::Parse(filter, rows));
  if (!sort.isEmpty()) {
    if (!list) {
      list.emplace();
      for (RowId row = 0; row < rows.EndId(); ++row)
        if (rows.IsLive(row)) list->push_back(row);
    }
    SortRows(rows, sort, *list);
  }
  view.Show(std::move(list));
}

void RecordsetState::RequireWritable() const {
  if (lock == LockType::ReadOnly) throw DataError(DataErrorKind::Usage, u"记录集以只读方式打开，不能修改。"_s);
}

void RecordsetState::RequireConnection() const {
  if (!connection) throw DataError(DataErrorKind::Usage, u"记录集是从文件打开的，没有数据库连接。"_s);
}

void RecordsetState::BeginEdit() {
  RequireWritable();
  const RowId row = LivingRow();
  if (!edit) edit = Edit{row, false, rows.Snapshot(row)};
}

void RecordsetState::EndEdit() {
  if (!edit) return;
  const Edit ending = *edit;
  edit.reset();
  if (lock == LockType::BatchOptimistic) return;
  try {
    Write({ending.row});
  } catch (const DataError&) {
    edit = ending;
    throw;
  }
}

void RecordsetState::DropEdit() {
  if (!edit) return;
  const Edit dropped = *edit;
  edit.reset();
  if (!dropped.adding) {
    rows.PutBack(dropped.row, dropped.before);
    return;
  }
  const qint64 position = view.PositionOf(dropped.row);
  rows.Restore(dropped.row);
  view.RemoveAt(position);
  view.Count() ? GoTo(view.Count() - 1) : GoEnd();
}

void RecordsetState::AddRow() {
  RequireWritable();
  if (edit) EndEdit();
  const RowId row = rows.Append();
  view.Append(row);
  GoTo(view.Count() - 1);
  edit = Edit{row, true, std::nullopt};
}

void RecordsetState::DeleteCurrentRow() {
  RequireWritable();
  const RowId row = LivingRow();
  if (edit && edit->adding) {
    DropEdit();
    return;
  }
  if (edit) DropEdit();
  const auto before = rows.Snapshot(row);
  rows.MarkDeleted(row);
  if (lock != LockType::BatchOptimistic) {
    try {
      Write({row});
    } catch (const DataError&) {
      rows.PutBack(row, before);
      throw;
    }
  }
  view.RemoveAt(position_);
  cursorState_ = CursorState::Hole;
}

void RecordsetState::ReadAgain(const std::vector<RowId>& wanted) {
  BatchWriter reader(*connection, source, rows);
  for (const RowId row : wanted) {
    const RowChange* change = rows.Change(row);
    if (!change || change->state != RowChange::Added) TakeAsRead(row, reader.Read(row));
  }
}

void RecordsetState::TakeAsRead(RowId row, const std::vector<QVariant>& values) {
  rows.Refresh(row, values);
  if (edit && edit->row == row) edit.reset();
}

void RecordsetState::Write(const std::vector<RowId>& pending) {
  if (!writer_) writer_ = std::make_unique<BatchWriter>(*connection, source, rows);
  try {
    writer_->Write(pending);
  } catch (const DataError&) {
    writer_.reset();  // the table may be another by now
    throw;
  }
}

}  // namespace folvane
