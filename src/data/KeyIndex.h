#pragma once

#include <optional>
#include <vector>

#include "data/RowStore.h"

namespace folvane {

/// Equal as the database's unique keys are: value for value.
bool SameCell(const Cell& one, const Cell& other);

/// Finds rows by their keys: a hash over all rows of a store of keys, or over some of them.
class KeyIndex {
 public:
  explicit KeyIndex(const RowStore& keys);
  KeyIndex(const RowStore& keys, std::vector<RowId> rows);

  /// @param key as many cells as a key has
  std::optional<RowId> Find(const Cell* key) const;

 private:
  void Fill(std::size_t count);
  RowId RowAt(std::size_t entry) const { return isOfAll_ ? RowId(entry) : rows_[entry]; }

  const RowStore& keys_;
  bool isOfAll_;
  std::vector<RowId> rows_;
  std::size_t mask_ = 0;
  std::vector<std::uint32_t> heads_, links_;  ///< an entry + 1; 0 for none
};

}  // namespace folvane
