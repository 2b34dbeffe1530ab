#pragma once

#include <vector>

#include "data/Rows.h"
#include "data/TextFold.h"

namespace folvane {

/// A hash index over one column of the rows read, for equal values. Rows changed since are not in it as they are now;
/// the caller looks at those one by one.
class ColumnIndex {
 public:
  ColumnIndex(const Rows& rows, int column);

  /// Calls visit(row) for the rows, ascending, whose stored value may equal the key; the caller tests it. Ends when
  /// visit gives true.
  template <typename Visit>
  void Each(QByteArrayView key, Visit visit) const {
    for (RowId next = heads_[Slot(key)]; next != 0; next = links_[next - 1])
      if (visit(next - 1)) return;
  }

 private:
  std::size_t Slot(QByteArrayView key) const { return FoldedHash(key) & mask_; }

  std::size_t mask_;
  std::vector<RowId> heads_;  ///< row + 1; 0 for none
  std::vector<RowId> links_;  ///< the next row of the same slot
};

}  // namespace folvane
