#include "data/ColumnIndex.h"

#include <bit>

#include "data/Criteria.h"

namespace folvane {

ColumnIndex::ColumnIndex(const Rows& rows, int column)
    : mask_(std::bit_ceil(std::size_t(rows.StoredCount()) + 1) - 1),
      heads_(mask_ + 1, 0),
      links_(rows.StoredCount(), 0) {
  const TypeGroup group = GroupOfType(rows.Columns()[size_t(column)].type);
  // From the last row to the first, so that each slot's chain ascends.
  for (RowId row = rows.StoredCount(); row-- > 0;) {
    const Cell cell = rows.Store().At(row, column);
    if (cell.kind == Cell::Null) continue;
    const bool isText = group == TypeGroup::Text && cell.kind == Cell::Text;
    RowId& head = heads_[isText ? Slot(cell.bytes) : Slot(IndexKeyOf(cell, group))];
    links_[row] = head;
    head = row + 1;
  }
}

}  // namespace folvane
