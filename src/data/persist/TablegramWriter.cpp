#include "data/persist/TablegramWriter.h"

#include <QtEndian>
#include <algorithm>

#include "base/FileUpdate.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t kBuffer = std::size_t(1) << 18;

uchar TokenOf(TablegramRow::Kind kind) {
  switch (kind) {
    case TablegramRow::Original:
      return TablegramToken::OriginalRow;
    case TablegramRow::Change:
      return TablegramToken::Change;
    case TablegramRow::Deletion:
      return TablegramToken::Deletion;
    case TablegramRow::Insertion:
      break;
  }
  return TablegramToken::Insertion;
}

/// Sets a map's bits one after the other, from the most significant down.
class MapWriter {
 public:
  explicit MapWriter(char*& at) : at_(at) {}
  void Put(bool bit) {
    byte_ = uchar(byte_ << 1 | uchar(bit));
    if (++bits_ % 8 == 0) *at_++ = char(byte_);
  }
  void Pad(uchar padding) {
    if (bits_ % 8) *at_++ = char(byte_ << (8 - bits_ % 8) | (padding & (0xff >> bits_ % 8)));
  }

 private:
  char*& at_;
  uchar byte_ = 0;
  unsigned bits_ = 0;
};

char* PutValue(char* at, const ValueLayout& layout, QByteArrayView bytes) {
  if (layout.kind == ValueLayout::ByteCount) {
    *at++ = char(bytes.size());
  } else if (layout.kind == ValueLayout::LongCount) {
    qToLittleEndian(quint32(bytes.size()), at);
    at += sizeof(quint32);
  }
  if (!bytes.empty()) memcpy(at, bytes.data(), std::size_t(bytes.size()));
  return at + bytes.size();
}

void PutOriginal(char*& at, const TablegramSet& set, const TablegramRow& row) {
  MapWriter map(at);
  for (std::size_t i = 0; i < set.layouts.size(); ++i)
    if (set.layouts[i].presence) map.Put(row.cells[i].state == TablegramCell::Value);
  map.Pad(row.padding);
}

void PutAssigned(char*& at, const TablegramRow& row) {
  MapWriter assigned(at);
  for (const TablegramCell& cell : row.cells) assigned.Put(cell.state & TablegramCell::Value);
  assigned.Pad(row.padding);
  MapWriter nulls(at);
  for (const TablegramCell& cell : row.cells) nulls.Put(cell.state & TablegramCell::Null);
  nulls.Pad(row.nullPadding);
}

}  // namespace

TablegramWriter::TablegramWriter(QIODevice& device, const Tablegram& head) : device_(device), head_(head) {}

void TablegramWriter::WriteHead() {
  const QByteArray head = EncodeTablegramHead(head_);
  memcpy(Reserve(std::size_t(head.size())), head.data(), std::size_t(head.size()));
  used_ += std::size_t(head.size());
}

void TablegramWriter::WriteRow(const TablegramRow& row) {
  const TablegramSet& set = head_.sets[std::size_t(row.set)];
  char* at = Reserve(RoomFor(row));
  const char* begin = at;
  *at++ = char(TokenOf(row.kind) | (row.set ? TablegramToken::OfChild : 0));
  if (row.set) {
    qToLittleEndian(quint32(row.set + 1), at);
    at += sizeof(quint32);
  }
  if (row.kind == TablegramRow::Original) PutOriginal(at, set, row);
  if (row.kind == TablegramRow::Change || row.kind == TablegramRow::Insertion) PutAssigned(at, row);
  if (row.kind != TablegramRow::Deletion)
    for (std::size_t i = 0; i < row.cells.size(); ++i)
      if (row.cells[i].state == TablegramCell::Value) at = PutValue(at, set.layouts[i], row.cells[i].bytes);
  used_ += std::size_t(at - begin);
}

void TablegramWriter::WriteEnd() {
  *Reserve(1) = char(TablegramToken::End);
  ++used_;
  Flush();
}

/// At least as many bytes as the row takes.
std::size_t TablegramWriter::RoomFor(const TablegramRow& row) const {
  std::size_t room = 1 + sizeof(quint32);
  if (row.kind == TablegramRow::Deletion) return room;
  room += (row.cells.size() + 7) / 8 * 2 + row.cells.size() * sizeof(quint32);
  for (const TablegramCell& cell : row.cells)
    if (cell.state == TablegramCell::Value) room += std::size_t(cell.bytes.size());
  return room;
}

char* TablegramWriter::Reserve(std::size_t size) {
  if (used_ + size > kBuffer) Flush();
  const std::size_t needed = used_ + size, room = std::size_t(buffer_.size());
  if (room < needed) buffer_.resize(qsizetype(std::max(needed, std::min(room * 2, kBuffer))));
  return buffer_.data() + used_;
}

void TablegramWriter::Flush() {
  if (device_.write(buffer_.constData(), qint64(used_)) != qint64(used_))
    throw FileError(u"记录集文件无法写入：%1"_s.arg(device_.errorString()));
  used_ = 0;
}

}  // namespace folvane
