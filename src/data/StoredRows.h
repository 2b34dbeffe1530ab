#pragma once

#include <QByteArrayView>
#include <QVariant>
#include <cstdint>
#include <functional>
#include <vector>

namespace folvane {

/// Names a row for as long as its rows are kept: the rows read count from 0, added ones follow.
using RowId = std::uint32_t;

/// One value of a row as it lies in a store; text and bytes point into it and live as long as the store.
struct Cell {
  enum Kind : std::uint8_t { Null, Integer, Real, Text, Bytes };
  Kind kind = Null;
  qint64 integer = 0;
  double real = 0;
  QByteArrayView bytes;  ///< Text in UTF-8, or Bytes

  QVariant ToVariant() const;
};

/// The rows of a result as they were read: all at once, or each when it is looked at for the first time. A row that was
/// read stays as it was then.
class StoredRows {
 public:
  virtual ~StoredRows() = default;

  virtual std::size_t RowCount() const = 0;
  /// Of a row that is gone only the key is known; its other cells are null.
  /// @throws DataError where the row has yet to be read and cannot be
  virtual Cell At(std::size_t row, int column) const = 0;
  /// Reads all cells of a row, into as many as there are columns. @throws DataError as At does
  virtual void Read(std::size_t row, Cell* cells) const = 0;

  // Rows that were all read at once are at hand, and none of them is ever gone.

  virtual bool IsWhole() const { return true; }
  virtual bool IsRead(RowId) const { return true; }
  /// Whether a value is known without asking the database: that of a key is, even of a row that was not read yet.
  virtual bool IsAtHand(RowId, int /*column*/) const { return true; }
  /// Whether no two rows have values in a column that compare equal, as far as that is known without a look at all.
  virtual bool AreDistinct(int /*column*/) const { return false; }
  /// Whether a row was no longer there when it was to be read.
  virtual bool IsGone(RowId) const { return false; }
  virtual std::size_t GoneCount() const { return 0; }
  /// Reads those of the rows that were not read yet, together. @throws DataError
  virtual void Load(const std::vector<RowId>&) const {}

  /// Has a row's cells be others from now on, where rows are kept one by one. @return whether they are
  virtual bool Rewrite(RowId, const Cell*) { return false; }

  /// Calls visit with every row and its cells of these columns, in any order; with one that is gone where the columns
  /// are of its key alone. Of rows that were not read yet no more than the columns is read, and not kept. @throws
  /// DataError
  using Visit = std::function<void(RowId row, const Cell* cells)>;
  virtual void EachCell(const std::vector<int>& columns, const Visit& visit) const;
};

}  // namespace folvane
