#include "data/Rows.h"

namespace folvane {

namespace {

bool IsDead(RowChange::State state) { return state == RowChange::Deleted || state == RowChange::Gone; }

}  // namespace

const QVariant* ColumnValues::Find(int column) const {
  for (const auto& [at, value] : values_)
    if (at == column) return &value;
  return nullptr;
}

void ColumnValues::Set(int column, const QVariant& value) {
  for (auto& [at, held] : values_) {
    if (at != column) continue;
    held = value;
    return;
  }
  values_.emplace_back(column, value);
}

void ColumnValues::TakeAll(ColumnValues& values) {
  if (values_.empty()) return values_.swap(values.values_);
  for (const auto& [column, value] : values.values_) Set(column, value);
  values.values_.clear();
}

Rows::Rows(OpenedRows opened)
    : columns_(std::move(opened.columns)),
      store_(std::move(opened.rows)),
      waiting_(std::move(opened.waiting)),
      given_(columns_.size()) {
  if (waiting_) dead_ = RowId(std::count(waiting_->states.begin(), waiting_->states.end(), WaitingRows::Deleted));
}

const RowChange* Rows::Change(RowId row) const {
  if (changes_.empty()) return nullptr;
  const auto found = changes_.find(row);
  return found == changes_.end() ? nullptr : &found->second;
}

RowChange::State Rows::StateOf(RowId row) const {
  if (const RowChange* change = Change(row)) return change->state;
  if (row >= StoredCount()) return RowChange::Clean;
  if (store_->IsGone(row)) return RowChange::Gone;
  if (!waiting_) return RowChange::Clean;
  switch (waiting_->states[row]) {
    case WaitingRows::Changed:
      return RowChange::Modified;
    case WaitingRows::Added:
      return RowChange::Added;
    case WaitingRows::Deleted:
      return RowChange::Deleted;
    default:
      return RowChange::Clean;
  }
}

bool Rows::IsLive(RowId row) const { return !IsDead(StateOf(row)); }

QVariant Rows::Stored(RowId row, int column) const {
  if (row >= StoredCount()) return {};
  return DecodeCell(store_->At(row, column), columns_[size_t(column)]);
}

/// Whether a file brought the row with a change.
bool Rows::CameChanged(RowId row) const {
  return waiting_ && row < StoredCount() && waiting_->states[row] == WaitingRows::Changed;
}

std::size_t Rows::IndexOfOriginal(RowId row) const {
  const auto& changed = waiting_->changed;
  return std::size_t(std::lower_bound(changed.begin(), changed.end(), row) - changed.begin());
}

QVariant Rows::StoredOriginal(RowId row, int column) const {
  if (CameChanged(row))
    return DecodeCell(waiting_->originals.At(IndexOfOriginal(row), column), columns_[size_t(column)]);
  const bool cameAdded = waiting_ && row < StoredCount() && waiting_->states[row] == WaitingRows::Added;
  return cameAdded ? QVariant() : Stored(row, column);
}

void Rows::Load(const std::vector<RowId>& rows) const {
  if (store_->IsWhole()) return;
  std::vector<RowId> stored = rows;
  std::erase_if(stored, [this](RowId row) { return row >= StoredCount(); });
  store_->Load(stored);
}

void Rows::ReadStored(RowId row, Cell* cells) const {
  row < StoredCount() ? store_->Read(row, cells) : void(std::fill_n(cells, columns_.size(), Cell()));
}

void Rows::ReadStoredOriginal(RowId row, Cell* cells) const {
  CameChanged(row) ? waiting_->originals.Read(IndexOfOriginal(row), cells) : ReadStored(row, cells);
}

QVariant Rows::Value(RowId row, int column) const {
  const RowChange* change = Change(row);
  if (const QVariant* given = change ? change->given.Find(column) : nullptr) return *given;
  const QVariant* written = change ? change->written.Find(column) : nullptr;
  return written ? *written : Stored(row, column);
}

QVariant Rows::Original(RowId row, int column) const {
  const RowChange* change = Change(row);
  const QVariant* written = change ? change->written.Find(column) : nullptr;
  return written ? *written : StoredOriginal(row, column);
}

bool Rows::IsChanged(RowId row, int column) const {
  const RowChange* change = Change(row);
  const QVariant* given = change ? change->given.Find(column) : nullptr;
  if (given) return *given != Original(row, column);
  return waiting_ && StateOf(row) == RowChange::Modified && Stored(row, column) != StoredOriginal(row, column);
}

void Rows::SetState(RowId row, RowChange& change, RowChange::State state) {
  dead_ += RowId(IsDead(state)) - RowId(IsDead(change.state));
  change.state = state;
  if (IsPending(change))
    pending_.insert(row);
  else
    pending_.erase(row);
}

RowId Rows::Append() {
  const RowId row = EndId();
  ++added_;
  RowChange& change = changes_[row];
  change.given.Reserve(columns_.size());
  SetState(row, change, RowChange::Added);
  return row;
}

void Rows::NoteGiven(RowId row, const RowChange& change, int column) {
  if (!change.given.Find(column) && !change.written.Find(column)) given_[size_t(column)].push_back(row);
}

void Rows::SetValue(RowId row, int column, const QVariant& value) {
  RowChange& change = changes_[row];
  NoteGiven(row, change, column);
  change.given.Set(column, value);
  if (change.state == RowChange::Clean) SetState(row, change, RowChange::Modified);
}

void Rows::MarkDeleted(RowId row) {
  RowChange& change = changes_[row];
  SetState(row, change, change.state == RowChange::Added ? RowChange::Gone : RowChange::Deleted);
}

void Rows::Restore(RowId row) {
  const auto at = changes_.find(row);
  if (at == changes_.end() || !IsPending(at->second)) return;
  RowChange& change = at->second;
  if (change.state == RowChange::Added) {
    SetState(row, change, RowChange::Gone);
    return;
  }
  change.given.Clear();
  SetState(row, change, RowChange::Clean);
}

std::optional<RowChange> Rows::Snapshot(RowId row) const {
  const RowChange* change = Change(row);
  return change ? std::optional(*change) : std::nullopt;
}

void Rows::PutBack(RowId row, const std::optional<RowChange>& before) {
  RowChange& change = changes_[row];
  const RowChange::State state = before ? before->state : RowChange::Clean;
  change.given = before ? before->given : ColumnValues();
  SetState(row, change, state);
}

void Rows::MarkWritten(RowId row) {
  RowChange& change = changes_[row];
  if (change.state == RowChange::Deleted) {
    SetState(row, change, RowChange::Gone);
    return;
  }
  change.written.TakeAll(change.given);
  SetState(row, change, RowChange::Clean);
  // A walk that writes to all rows of a large table is not to keep them all.
  if (KeepInStore(row, change.written)) changes_.erase(row);
}

bool Rows::KeepInStore(RowId row, const ColumnValues& written) {
  if (row >= StoredCount() || store_->IsWhole()) return false;
  std::vector<Cell> cells(columns_.size());
  std::vector<QByteArray> held(columns_.size());
  store_->Read(row, cells.data());
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (const QVariant* value = written.Find(int(i))) cells[i] = CellOf(*value, held[i]);
  return store_->Rewrite(row, cells.data());
}

void Rows::Refresh(RowId row, const std::vector<QVariant>& values) {
  RowChange& change = changes_[row];
  for (std::size_t i = 0; i < values.size(); ++i) {
    NoteGiven(row, change, int(i));
    change.written.Set(int(i), values[i]);
  }
  change.given.Clear();
  SetState(row, change, RowChange::Clean);
}

std::vector<RowId> Rows::PendingRows() const {
  std::vector<RowId> pending(pending_.begin(), pending_.end());
  if (!waiting_) return pending;
  for (RowId row = 0; row < StoredCount(); ++row)
    if (waiting_->states[row] != WaitingRows::Clean) pending.push_back(row);
  return pending;
}

bool Rows::IsPending(const RowChange& change) {
  return change.state == RowChange::Modified || change.state == RowChange::Added || change.state == RowChange::Deleted;
}

}  // namespace folvane
