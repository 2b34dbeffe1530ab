#pragma once

#include <QByteArrayView>
#include <QVariant>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace folvane {

/// One value of a row as it lies in the store; text and bytes point into it and live as long as the store.
struct Cell {
  enum Kind : std::uint8_t { Null, Integer, Real, Text, Bytes };
  Kind kind = Null;
  qint64 integer = 0;
  double real = 0;
  QByteArrayView bytes;  ///< Text in UTF-8, or Bytes

  QVariant ToVariant() const;
};

/// The rows of a result, appended once and then read in any order. Rows lie packed in chunks of 1 MiB that never move,
/// so that a million rows cost what their bytes cost; a value is decoded when it is asked for.
class RowStore {
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
  void EndRow();

  std::size_t RowCount() const { return rowCount_; }
  Cell At(std::size_t row, int column) const;
  /// Reads all cells of a row, into as many as there are columns.
  void Read(std::size_t row, Cell* cells) const;

 private:
  static constexpr std::size_t kPageRows = std::size_t(1) << 16;
  void Tag(std::uint64_t header, std::size_t length, const void* payload);
  char* Reserve(std::size_t length);

  int columnCount_ = 0;
  std::size_t rowCount_ = 0;
  std::vector<std::unique_ptr<char[]>> chunks_;
  std::vector<std::unique_ptr<const char*[]>> pages_;  ///< where each row starts, 65,536 to a page
  char* rowStart_ = nullptr;                           ///< of the row being appended
  char* next_ = nullptr;
  char* end_ = nullptr;
};

}  // namespace folvane
