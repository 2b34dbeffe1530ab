#pragma once

#include <QIODevice>

#include "data/persist/Tablegram.h"

namespace folvane {

/// Writes a persisted record set to a device: its head, its rows in the order they are to be read, and its end. What
/// was read by a TablegramReader comes out byte for byte. @throws FileError when the device takes no more, as all below
class TablegramWriter {
 public:
  /// The head must outlive the writer.
  TablegramWriter(QIODevice& device, const Tablegram& head);

  void WriteHead();
  void WriteRow(const TablegramRow& row);
  void WriteEnd();

 private:
  std::size_t RoomFor(const TablegramRow& row) const;
  char* Reserve(std::size_t size);
  void Flush();

  QIODevice& device_;
  const Tablegram& head_;
  QByteArray buffer_;
  std::size_t used_ = 0;
};

/// Header, handler options and the descriptors of all record sets, as a file begins with them.
/// @throws FileError when a descriptor is longer than the format allows
QByteArray EncodeTablegramHead(const Tablegram& head);

}  // namespace folvane
