#pragma once

#include <memory>
#include <vector>

#include "data/RowStore.h"
#include "data/Schema.h"

namespace folvane {

/// A result as it came from the database: its columns and all its rows.
struct FetchedRows {
  std::vector<ColumnInfo> columns;
  std::unique_ptr<RowStore> rows;
};

}  // namespace folvane
