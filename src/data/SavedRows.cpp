#include "data/SavedRows.h"

#include <algorithm>

namespace folvane {

SavedRows::SavedRows(const RecordsetState& state)
    : state_(state), cells_(state.rows.Columns().size()), held_(state.rows.Columns().size()) {
  LoadAll();
  if (!state.filter.isEmpty()) return;
  for (const RowId row : state.rows.PendingRows())
    if (state.rows.StateOf(row) == RowChange::Deleted) deleted_.push_back(row);
}

void SavedRows::LoadAll() {
  if (state_.rows.Store().IsWhole()) return;
  constexpr qint64 kTogether = 1000;
  const qint64 count = state_.view.Count();
  for (qint64 at = 0; at < count; at += kTogether)
    state_.rows.Load(state_.view.Between(at, std::min(at + kTogether, count)));
  if (state_.rows.AllLive()) return;
  present_ = state_.view.Between(0, count);
  std::erase_if(*present_, [this](RowId row) { return !state_.rows.IsLive(row); });
}

RowId SavedRows::At(qint64 index) const {
  const auto ahead = qint64(deleted_.size());
  if (index < ahead) return deleted_[std::size_t(index)];
  return present_ ? (*present_)[std::size_t(index - ahead)] : state_.view.At(index - ahead);
}

const std::vector<Cell>& SavedRows::Current(RowId row) {
  state_.rows.ReadStored(row, cells_.data());
  if (const RowChange* change = state_.rows.Change(row)) {
    Lay(change->written);
    Lay(change->given);
  }
  return cells_;
}

const std::vector<Cell>& SavedRows::Original(RowId row) {
  state_.rows.ReadStoredOriginal(row, cells_.data());
  if (const RowChange* change = state_.rows.Change(row)) Lay(change->written);
  return cells_;
}

/// Puts values in place of those that were read. What was read stays as exact as it is.
void SavedRows::Lay(const ColumnValues& values) {
  for (std::size_t i = 0; i < cells_.size(); ++i)
    if (const QVariant* value = values.Find(int(i))) cells_[i] = CellOf(*value, held_[i]);
}

}  // namespace folvane
