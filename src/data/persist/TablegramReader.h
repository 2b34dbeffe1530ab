#pragma once

#include "data/persist/ByteCursor.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Reads a persisted record set: first what is ahead of its rows, then row after row. Nothing is copied out of the
/// bytes that has no fixed size, so that they must outlive the reader and what it gave.
class TablegramReader {
 public:
  /// @throws FileError when the bytes do not begin as a persisted record set does, or what is ahead of the rows is
  /// broken
  explicit TablegramReader(QByteArrayView content);

  const Tablegram& Head() const { return head_; }

  /// Reads the next row into `row`, false behind the last one. @throws FileError
  bool Next(TablegramRow& row);

 private:
  int ReadSet(uchar token, std::size_t offset);
  void CheckOrder(const TablegramRow& row, std::size_t offset) const;
  void ReadOriginal(TablegramRow& row);
  void ReadAssigned(TablegramRow& row);
  QByteArrayView ReadValue(const ValueLayout& layout);

  ByteCursor cursor_;
  Tablegram head_;
  TablegramRow::Kind last_ = TablegramRow::Insertion;
  int lastSet_ = 0;
  bool ended_ = false;
};

/// Reads header, handler options and the descriptors of all record sets, up to the first row. @throws FileError
Tablegram ReadTablegramHead(ByteCursor& cursor);

}  // namespace folvane
