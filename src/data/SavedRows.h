#pragma once

#include <optional>
#include <vector>

#include "data/RecordsetState.h"

namespace folvane {

/// The rows of a record set that go into a file, and their values as cells.
class SavedRows {
 public:
  /// Reads what was not read yet. @throws DataError
  explicit SavedRows(const RecordsetState& state);

  /// Deleted rows that wait come first, as ADO has it, and only where no filter hides them; then those in view.
  qint64 Count() const { return qint64(deleted_.size()) + LiveCount(); }
  RowId At(qint64 index) const;
  qint64 LiveCount() const { return present_ ? qint64(present_->size()) : state_.view.Count(); }
  const Rows& Source() const { return state_.rows; }

  /// The values of a row now, and those that the database has; valid until the next call of either.
  const std::vector<Cell>& Current(RowId row);
  const std::vector<Cell>& Original(RowId row);

 private:
  void LoadAll();
  void Lay(const ColumnValues& values);

  const RecordsetState& state_;
  std::vector<RowId> deleted_;
  std::optional<std::vector<RowId>> present_;  ///< those in view, where some are gone
  std::vector<Cell> cells_;
  std::vector<QByteArray> held_;  ///< by column, of values that lie in no store
};

}  // namespace folvane
