#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "data/Rows.h"

namespace folvane {

/// Which rows a record set shows, in which order. Without filter, sort and deleted rows it is the rows themselves and
/// costs nothing.
class View {
 public:
  explicit View(const Rows& rows) : rows_(rows) {}

  qint64 Count() const;
  RowId At(qint64 position) const;
  /// The rows at the positions from the first to the one before the last.
  std::vector<RowId> Between(qint64 begin, qint64 end) const;
  /// -1 when the row is not shown.
  qint64 PositionOf(RowId row) const;

  /// Shows the given rows, or all live rows in the order read.
  void Show(std::optional<std::vector<RowId>> rows);
  void Append(RowId row);
  void RemoveAt(qint64 position);
  const std::optional<std::vector<RowId>>& List() const { return list_; }

 private:
  const Rows& rows_;
  std::optional<std::vector<RowId>> list_;
  mutable std::vector<qint64> positions_;  ///< by row, made when first asked for; empty when stale
};

/// Puts rows, which are given ascending, into the order of "field [Asc|Desc], ...". Rows that compare equal keep their
/// order, and those that are gone drop out.
/// @throws DataError Usage for an unknown field or a text that cannot be read
void SortRows(const Rows& rows, const QString& order, std::vector<RowId>& list);

}  // namespace folvane
