#include "data/Rows.h"

#include "data/ValueText.h"

namespace folvane {

namespace {

bool IsDead(RowChange::State state) { return state == RowChange::Deleted || state == RowChange::Gone; }

}  // namespace

Rows::Rows(FetchedRows fetched) : columns_(std::move(fetched.columns)), store_(std::move(fetched.rows)) {}

int Rows::IndexOf(const QString& column) const {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (columns_[i].name.compare(column, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
  return -1;
}

const RowChange* Rows::Change(RowId row) const {
  if (changes_.empty()) return nullptr;
  const auto found = changes_.find(row);
  return found == changes_.end() ? nullptr : &found->second;
}

bool Rows::IsLive(RowId row) const {
  const RowChange* change = Change(row);
  return !change || !IsDead(change->state);
}

QVariant Rows::Value(RowId row, int column) const {
  if (const RowChange* change = Change(row)) return change->current[static_cast<std::size_t>(column)];
  return DecodeCell(store_->At(row, column), columns_[static_cast<std::size_t>(column)]);
}

QVariant Rows::Original(RowId row, int column) const {
  const RowChange* change = Change(row);
  if (!change) return Value(row, column);
  return change->original.empty() ? QVariant() : change->original[static_cast<std::size_t>(column)];
}

RowChange& Rows::Touch(RowId row) {
  const auto [at, fresh] = changes_.try_emplace(row);
  if (fresh) {
    at->second.current.reserve(columns_.size());
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i)
      at->second.current.push_back(DecodeCell(store_->At(row, i), columns_[static_cast<std::size_t>(i)]));
    at->second.original = at->second.current;
  }
  return at->second;
}

void Rows::SetState(RowId row, RowChange& change, RowChange::State state) {
  dead_ += static_cast<RowId>(IsDead(state)) - static_cast<RowId>(IsDead(change.state));
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
  change.current.resize(columns_.size());
  SetState(row, change, RowChange::Added);
  return row;
}

void Rows::SetValue(RowId row, int column, const QVariant& value) {
  RowChange& change = Touch(row);
  change.current[static_cast<std::size_t>(column)] = value;
  if (change.state == RowChange::Clean) SetState(row, change, RowChange::Modified);
}

void Rows::MarkDeleted(RowId row) {
  RowChange& change = Touch(row);
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
  change.current = change.original;
  SetState(row, change, RowChange::Clean);
}

std::optional<RowChange> Rows::Snapshot(RowId row) const {
  const RowChange* change = Change(row);
  return change ? std::optional(*change) : std::nullopt;
}

void Rows::PutBack(RowId row, const std::optional<RowChange>& before) {
  RowChange& change = Touch(row);
  const RowChange::State state = before ? before->state : RowChange::Clean;
  change.current = before ? before->current : change.original;
  SetState(row, change, state);
}

void Rows::MarkWritten(RowId row) {
  RowChange& change = Touch(row);
  if (change.state == RowChange::Deleted) {
    SetState(row, change, RowChange::Gone);
    return;
  }
  change.original = change.current;
  SetState(row, change, RowChange::Clean);
}

void Rows::Refresh(RowId row, std::vector<QVariant> values) {
  RowChange& change = Touch(row);
  change.original = values;
  change.current = std::move(values);
  SetState(row, change, RowChange::Clean);
}

bool Rows::IsPending(const RowChange& change) {
  return change.state == RowChange::Modified || change.state == RowChange::Added || change.state == RowChange::Deleted;
}

}  // namespace folvane
