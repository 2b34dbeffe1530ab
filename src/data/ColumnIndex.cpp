#include "data/ColumnIndex.h"

#include <bit>
#include <utility>

#include "data/Criteria.h"

namespace folvane {

ColumnIndex::ColumnIndex(const Rows& rows, int column)
    : mask_(std::bit_ceil(std::size_t(rows.StoredCount()) + 1) - 1),
      heads_(mask_ + 1, 0),
      links_(rows.StoredCount(), 0) {
  const TypeGroup group = GroupOfType(rows.Columns()[size_t(column)].type);
  // First a row's link is its slot + 1.
  rows.Store().EachCell({column}, [&](RowId row, const Cell* cell) {
    if (cell->kind == Cell::Null) return;
    const bool isText = group == TypeGroup::Text && cell->kind == Cell::Text;
    links_[row] = RowId((isText ? Slot(cell->bytes) : Slot(IndexKeyOf(*cell, group))) + 1);
  });
  // From the last row to the first, so that each slot's chain ascends.
  for (RowId row = rows.StoredCount(); row-- > 0;) {
    if (links_[row] == 0) continue;
    RowId& head = heads_[links_[row] - 1];
    links_[row] = std::exchange(head, row + 1);
  }
}

}  // namespace folvane
