#pragma once

#include <memory>
#include <vector>

#include "data/RowStore.h"
#include "data/Schema.h"

namespace folvane {

/// Which rows of a result wait to be written: those of a file can, those of a database never.
struct WaitingRows {
  enum State : std::uint8_t { Clean, Changed, Added, Deleted };
  std::vector<State> states;         ///< by row
  std::vector<std::size_t> changed;  ///< the rows that are Changed, ascending
  RowStore originals;                ///< their values before, row by row
};

/// A result as it came from the database or out of a file: its columns and all its rows.
struct FetchedRows {
  std::vector<ColumnInfo> columns;
  std::unique_ptr<RowStore> rows;
  std::unique_ptr<WaitingRows> waiting = nullptr;  ///< where some row waits
};

/// What a record set opens: a whole result, or one whose rows are read when they are looked at.
struct OpenedRows {
  OpenedRows() = default;
  OpenedRows(FetchedRows fetched)  // NOLINT(google-explicit-constructor): the one is the other
      : columns(std::move(fetched.columns)), rows(std::move(fetched.rows)), waiting(std::move(fetched.waiting)) {}

  std::vector<ColumnInfo> columns;
  std::unique_ptr<StoredRows> rows;
  std::unique_ptr<WaitingRows> waiting;
};

}  // namespace folvane
