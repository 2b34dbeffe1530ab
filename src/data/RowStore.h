#pragma once

#include <cstring>
#include <memory>
#include <vector>

#include "data/ChunkFile.h"
#include "data/StoredRows.h"

namespace folvane {

/// Rows that are appended once and then read in any order. They lie packed in chunks of 1 MiB that never move, so that
/// a million rows cost what their bytes cost; a value is decoded when it is asked for.
class RowStore final : public StoredRows {
 public:
  static constexpr std::size_t kChunkSize = std::size_t(1) << 20;

  RowStore() = default;
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  void SetColumnCount(int count) { columnCount_ = count; }
  int ColumnCount() const { return columnCount_; }

  // Appending: the values of a row in column order, then EndRow.
  void AddNull() { Tag(0, 0, nullptr); }
  void AddInteger(qint64 value);
  void AddReal(double value) { Tag((std::uint64_t(sizeof value) << 2) | 2, sizeof value, &value); }
  void AddText(const char* utf8, std::size_t length) { Tag((std::uint64_t(length) << 2) | 3, length, utf8); }
  void AddBytes(const char* bytes, std::size_t length);
  void Add(const Cell& cell);
  void EndRow();
  /// Takes back the values of a row that is not ended.
  void DropBegunRow() { next_ = rowStart_; }

  /// Keeps no more than so many chunks in memory of its own; those that follow lie in a temporary file.
  void LimitMemory(std::size_t chunks) { mostChunks_ = chunks; }

  std::size_t RowCount() const override { return rowCount_; }
  Cell At(std::size_t row, int column) const override;
  void Read(std::size_t row, Cell* cells) const override;

 private:
  static constexpr std::size_t kPageRows = std::size_t(1) << 16;
  void Tag(std::uint64_t header, std::size_t length, const void* payload);
  char* Reserve(std::size_t length);
  char* NewChunk(std::size_t size);

  int columnCount_ = 0;
  std::size_t rowCount_ = 0;
  std::size_t mostChunks_ = std::size_t(-1);
  std::vector<std::unique_ptr<char[]>> chunks_;
  std::unique_ptr<ChunkFile> file_;                    ///< of the chunks beyond the limit
  std::vector<std::unique_ptr<const char*[]>> pages_;  ///< where each row starts, 65,536 to a page
  char* rowStart_ = nullptr;                           ///< of the row being appended
  char* next_ = nullptr;
  char* end_ = nullptr;
};

}  // namespace folvane
