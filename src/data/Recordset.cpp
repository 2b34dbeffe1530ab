#include "data/Recordset.h"

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/RecordsetFile.h"
#include "data/RecordsetState.h"
#include "data/ValueText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

using CursorState = RecordsetState::CursorState;

namespace {

RecordsetState& Opened(const std::unique_ptr<RecordsetState>& state) {
  if (!state) throw DataError(DataErrorKind::Usage, u"记录集没有打开，不能进行该操作。"_s);
  return *state;
}

}  // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const QString& source, std::shared_ptr<Connection> connection, CursorType, LockType lock,
                     CursorLocation) {
  if (state_) throw DataError(DataErrorKind::Usage, u"记录集已经打开。"_s, source);
  if (!connection) throw DataError(DataErrorKind::Usage, u"没有数据库连接。"_s, source);
  OpenedRows opened = DatabaseSession::Of(*connection).Open(source, textOrder_);
  state_ = std::make_unique<RecordsetState>(source, std::move(connection), lock, std::move(opened));
}

void Recordset::OpenFile(const QString& path, int codePage) {
  if (state_) throw DataError(DataErrorKind::Usage, u"记录集已经打开。"_s, path);
  state_ = std::make_unique<RecordsetState>(path, nullptr, LockType::ReadOnly, LoadRecordset(path, codePage));
}

void Recordset::Save(const QString& path) const { SaveRecordset(Opened(state_), path); }

void Recordset::Close() {
  Opened(state_);
  state_.reset();
}

bool Recordset::IsOpen() const { return state_ != nullptr; }
QString Recordset::Source() const { return Opened(state_).source; }

bool Recordset::BOF() const {
  const CursorState cursor = Opened(state_).cursorState_;
  return cursor == CursorState::Bof || cursor == CursorState::Empty;
}

bool Recordset::EOF_() const {
  const CursorState cursor = Opened(state_).cursorState_;
  return cursor == CursorState::Eof || cursor == CursorState::Empty;
}

qint64 Recordset::RecordCount() const { return Opened(state_).view.Count(); }

qint64 Recordset::AbsolutePosition() const {
  const RecordsetState& state = Opened(state_);
  switch (state.cursorState_) {
    case CursorState::Row:
      return state.position_ + 1;
    case CursorState::Bof:
      return -2;
    case CursorState::Eof:
      return -3;
    default:
      return -1;
  }
}

void Recordset::SetAbsolutePosition(qint64 position) {
  RecordsetState& state = Opened(state_);
  if (position < 1 || position > state.view.Count())
    throw DataError(DataErrorKind::Usage, u"没有第 %1 条记录。"_s.arg(position));
  state.GoTo(position - 1);
}

qint64 Recordset::Bookmark() const { return qint64(Opened(state_).LivingRow()) + 1; }

void Recordset::SetBookmark(qint64 bookmark) {
  RecordsetState& state = Opened(state_);
  if (bookmark < 1 || bookmark > qint64(state.rows.EndId()))
    throw DataError(DataErrorKind::Usage, u"书签所指的记录已不存在。"_s);
  state.GoToRow(RowId(bookmark - 1));
}

namespace {

void RequireRows(const RecordsetState& state) {
  if (state.cursorState_ == CursorState::Empty) throw DataError(DataErrorKind::Usage, u"记录集中没有记录。"_s);
}

}  // namespace

void Recordset::MoveFirst() {
  RecordsetState& state = Opened(state_);
  RequireRows(state);
  state.Walk([&] { state.GoFirst(); }, 1);
}

void Recordset::MoveLast() {
  RecordsetState& state = Opened(state_);
  RequireRows(state);
  state.Walk([&] { state.GoLast(); }, -1);
}

void Recordset::MoveNext() {
  RecordsetState& state = Opened(state_);
  if (EOF_()) throw DataError(DataErrorKind::Usage, u"已在最后一条记录之后，不能再向后移动。"_s);
  state.Walk([&] { state.Step(1); }, 1);
}

void Recordset::MovePrevious() {
  RecordsetState& state = Opened(state_);
  if (BOF()) throw DataError(DataErrorKind::Usage, u"已在第一条记录之前，不能再向前移动。"_s);
  state.Walk([&] { state.Step(-1); }, -1);
}

void Recordset::Move(qint64 count, MoveFrom from) {
  RecordsetState& state = Opened(state_);
  if (from != MoveFrom::Current) {
    RequireRows(state);
    from == MoveFrom::First ? state.GoFirst() : state.GoLast();
  }
  if ((count > 0 && EOF_()) || (count < 0 && BOF()))
    throw DataError(DataErrorKind::Usage, u"没有当前记录，不能移动。"_s);
  state.Step(count);
}

void Recordset::Find(const QString& criterion, qint64 skip, SearchDirection direction) {
  RecordsetState& state = Opened(state_);
  const Criteria criteria = Criteria::Parse(criterion, state.rows);
  const Condition* condition = criteria.Single();
  if (!condition) throw DataError(DataErrorKind::Usage, u"查找只能用一个条件：%1"_s.arg(criterion));
  const bool forward = direction == SearchDirection::Forward;
  qint64 from = state.position_;
  if (state.cursorState_ == CursorState::Hole && !forward) --from;
  from += forward ? skip : -skip;
  const qint64 found = from < 0 || from >= state.view.Count() ? -1 : state.Find(*condition, from, direction);
  if (found >= 0)
    state.GoTo(found);
  else
    forward ? state.GoEnd() : state.GoBeforeStart();
}

void Recordset::SetFilter(const QString& criteria) {
  RecordsetState& state = Opened(state_);
  if (state.edit) state.EndEdit();
  const QString before = std::exchange(state.filter, criteria.trimmed());
  try {
    state.Reshow();
  } catch (const DataError&) {
    state.filter = before;
    throw;
  }
  state.GoFirst();
}

QString Recordset::Filter() const { return Opened(state_).filter; }

void Recordset::SetSort(const QString& order) {
  RecordsetState& state = Opened(state_);
  if (state.edit) state.EndEdit();
  const QString before = std::exchange(state.sort, order.trimmed());
  try {
    state.Reshow();
  } catch (const DataError&) {
    state.sort = before;
    throw;
  }
  state.GoFirst();
}

QString Recordset::Sort() const { return Opened(state_).sort; }

FieldList Recordset::Fields() const { return FieldList(&Opened(state_)); }

QString Recordset::TextAt(qint64 position, int field) const {
  const RecordsetState& state = Opened(state_);
  if (position < 1 || position > state.view.Count())
    throw DataError(DataErrorKind::Usage, QStringLiteral("记录集中没有第 %1 条记录。").arg(position));
  try {
    return ValueText(state.rows.Value(state.SeenRow(position - 1, field), field));
  } catch (const DataError&) {
    return {};
  }
}

EditModeKind Recordset::EditMode() const {
  const RecordsetState& state = Opened(state_);
  if (state.cursorState_ == CursorState::Hole || state.IsOnGoneRow()) return EditModeKind::Delete;
  if (!state.edit) return EditModeKind::None;
  return state.edit->adding ? EditModeKind::Add : EditModeKind::InProgress;
}

void Recordset::AddNew() { Opened(state_).AddRow(); }

void Recordset::Update() {
  RecordsetState& state = Opened(state_);
  state.CurrentRow();
  state.EndEdit();
}

void Recordset::UpdateBatch(AffectKind affect) {
  RecordsetState& state = Opened(state_);
  state.RequireWritable();
  // The edit in progress is written too, and is still in progress when the database refuses it.
  const std::optional<RecordsetState::Edit> editing = std::exchange(state.edit, std::nullopt);
  try {
    if (affect != AffectKind::Current)
      state.Write(state.rows.PendingRows());
    else if (state.HasRow())
      state.Write({state.CurrentRow()});
  } catch (const DataError&) {
    state.edit = editing;
    throw;
  }
}

void Recordset::CancelUpdate() { Opened(state_).DropEdit(); }

void Recordset::CancelBatch(AffectKind affect) {
  RecordsetState& state = Opened(state_);
  state.RequireConnection();
  const std::optional<RowId> current = state.HasRow() ? std::optional(state.CurrentRow()) : std::nullopt;
  state.edit.reset();
  std::vector<RowId> cancelled = state.rows.PendingRows();
  if (affect == AffectKind::Current) cancelled = current ? std::vector{*current} : std::vector<RowId>();
  for (const RowId row : cancelled) state.rows.Restore(row);
  const qint64 position = state.position_;
  state.Reshow();
  if (current && state.rows.IsLive(*current) && state.view.PositionOf(*current) >= 0)
    state.GoToRow(*current);
  else if (position < 0)
    state.GoBeforeStart();
  else if (state.view.Count() == 0)
    state.GoEnd();
  else
    state.GoTo(std::min(position, state.view.Count() - 1));
}

void Recordset::Delete(AffectKind affect) {
  if (affect != AffectKind::Current) throw DataError(DataErrorKind::Usage, u"一次只能删除当前的一条记录。"_s);
  Opened(state_).DeleteCurrentRow();
}

void Recordset::Requery() {
  RecordsetState& state = Opened(state_);
  if (state.edit) throw DataError(DataErrorKind::Usage, u"当前记录正在编辑，请先保存或取消。"_s);
  state.RequireConnection();
  OpenedRows opened = DatabaseSession::Of(*state.connection).Open(state.source, textOrder_);
  auto fresh = std::make_unique<RecordsetState>(state.source, state.connection, state.lock, std::move(opened));
  fresh->filter = state.filter;
  fresh->sort = state.sort;
  fresh->Reshow();
  fresh->GoFirst();
  state_ = std::move(fresh);
}

void Recordset::Resync(AffectKind affect) {
  RecordsetState& state = Opened(state_);
  state.RequireConnection();
  std::vector<RowId> wanted;
  if (affect == AffectKind::Current) {
    wanted.push_back(state.LivingRow());
  } else {
    for (qint64 p = 0; p < state.view.Count(); ++p) wanted.push_back(state.view.At(p));
  }
  state.ReadAgain(wanted);
}

std::vector<QVariant> Recordset::OriginalValues() const {
  const RecordsetState& state = Opened(state_);
  const RowId row = state.LivingRow();
  std::vector<QVariant> values(state.rows.Columns().size());
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = state.rows.Original(row, int(i));
  return values;
}

void Recordset::TakeForStored(const std::vector<QVariant>& values) {
  RecordsetState& state = Opened(state_);
  state.TakeAsRead(state.CurrentRow(), values);
}

qint64 Recordset::PendingCount() const { return qint64(Opened(state_).rows.PendingRows().size()); }

}  // namespace folvane
