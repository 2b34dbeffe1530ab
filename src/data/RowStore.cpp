#include "data/RowStore.h"

#include <algorithm>
#include <cstdint>

#include "data/Utf8.h"

// A row is its values one after the other. A value is a header, length << 2 | tag, as a base-128 number, and as many
// bytes as the length says. Tag 0 is null with length 0 and bytes otherwise, 1 an integer, 2 a real, 3 text.
namespace folvane {

namespace {

constexpr std::size_t kMaxHeader = 10;

char* PutHeader(char* at, std::uint64_t header) {
  while (header >= 0x80) {
    *at++ = char(header | 0x80);
    header >>= 7;
  }
  *at++ = char(header);
  return at;
}

const char* TakeHeader(const char* at, std::uint64_t& header) {
  auto byte = uchar(*at++);
  header = byte & 0x7f;
  for (int shift = 7; byte & 0x80; shift += 7) {
    byte = uchar(*at++);
    header |= std::uint64_t(byte & 0x7f) << shift;
  }
  return at;
}

// Bytes share tag 0 with null; a leading one keeps empty bytes apart from null.
constexpr char kBytesMark = 1;

}  // namespace

void StoredRows::EachCell(const std::vector<int>& columns, const Visit& visit) const {
  std::vector<Cell> cells(columns.size());
  for (std::size_t row = 0; row < RowCount(); ++row) {
    for (std::size_t i = 0; i < columns.size(); ++i) cells[i] = At(row, columns[i]);
    visit(RowId(row), cells.data());
  }
}

QVariant Cell::ToVariant() const {
  switch (kind) {
    case Null:
      return {};
    case Integer:
      return integer;
    case Real:
      return real;
    case Text:
      return TextOfUtf8(bytes);
    case Bytes:
      return QByteArray(bytes.data(), bytes.size());
  }
  return {};
}

char* RowStore::Reserve(std::size_t length) {
  if (size_t(end_ - next_) >= length && next_) return next_;
  // The row in hand moves to the new chunk with its first bytes, so that a row always lies in one piece.
  const std::size_t begun = rowStart_ ? size_t(next_ - rowStart_) : 0;
  const std::size_t needed = begun + length;
  // A long row gets room to double in, and short ones the common chunk.
  const std::size_t size = needed > kChunkSize / 2 ? std::max(kChunkSize, needed * 2) : kChunkSize;
  char* chunk = NewChunk(size);
  if (begun) std::memcpy(chunk, rowStart_, begun);
  rowStart_ = chunk;
  next_ = chunk + begun;
  end_ = chunk + size;
  return next_;
}

char* RowStore::NewChunk(std::size_t size) {
  if (chunks_.size() >= mostChunks_) {
    if (!file_) file_ = std::make_unique<ChunkFile>(mostChunks_);
    // Where the disk is full, memory has to do.
    if (char* chunk = file_->Add(size)) return chunk;
  }
  chunks_.push_back(std::unique_ptr<char[]>(new char[size]));
  return chunks_.back().get();
}

void RowStore::Tag(std::uint64_t header, std::size_t length, const void* payload) {
  char* at = PutHeader(Reserve(kMaxHeader + length), header);
  if (length) std::memcpy(at, payload, length);
  next_ = at + length;
}

void RowStore::AddInteger(qint64 value) {
  // Small numbers in one byte, the others in eight: design tables and running numbers are small.
  if (value >= -128 && value < 128) {
    const auto narrow = static_cast<std::int8_t>(value);
    Tag((std::uint64_t(1) << 2) | 1, 1, &narrow);
  } else {
    Tag((std::uint64_t(sizeof value) << 2) | 1, sizeof value, &value);
  }
}

void RowStore::AddBytes(const char* bytes, std::size_t length) {
  char* at = PutHeader(Reserve(kMaxHeader + length + 1), std::uint64_t(length + 1) << 2);
  *at++ = kBytesMark;
  if (length) std::memcpy(at, bytes, length);
  next_ = at + length;
}

void RowStore::Add(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Null:
      return AddNull();
    case Cell::Integer:
      return AddInteger(cell.integer);
    case Cell::Real:
      return AddReal(cell.real);
    case Cell::Text:
      return AddText(cell.bytes.data(), std::size_t(cell.bytes.size()));
    case Cell::Bytes:
      return AddBytes(cell.bytes.data(), std::size_t(cell.bytes.size()));
  }
}

void RowStore::EndRow() {
  if (!rowStart_) rowStart_ = Reserve(0 + kMaxHeader);
  const std::size_t slot = rowCount_ % kPageRows;
  if (slot == 0) pages_.push_back(std::unique_ptr<const char*[]>(new const char*[kPageRows]));
  pages_.back()[slot] = rowStart_;
  rowStart_ = next_;
  ++rowCount_;
}

namespace {

Cell DecodedCell(std::uint64_t header, const char* at) {
  const auto length = size_t(header >> 2);
  Cell cell;
  switch (header & 3) {
    case 0:
      if (length) {
        cell.kind = Cell::Bytes;
        cell.bytes = QByteArrayView(at + 1, qsizetype(length - 1));
      }
      break;
    case 1:
      cell.kind = Cell::Integer;
      if (length == 1)
        cell.integer = static_cast<std::int8_t>(*at);
      else
        std::memcpy(&cell.integer, at, sizeof cell.integer);
      break;
    case 2:
      cell.kind = Cell::Real;
      std::memcpy(&cell.real, at, sizeof cell.real);
      break;
    default:
      cell.kind = Cell::Text;
      cell.bytes = QByteArrayView(at, qsizetype(length));
  }
  return cell;
}

}  // namespace

Cell RowStore::At(std::size_t row, int column) const {
  const char* at = pages_[row / kPageRows][row % kPageRows];
  std::uint64_t header = 0;
  at = TakeHeader(at, header);
  for (; column > 0; --column) at = TakeHeader(at + (header >> 2), header);
  return DecodedCell(header, at);
}

void RowStore::Read(std::size_t row, Cell* cells) const {
  const char* at = pages_[row / kPageRows][row % kPageRows];
  for (int column = 0; column < columnCount_; ++column) {
    std::uint64_t header = 0;
    at = TakeHeader(at, header);
    cells[column] = DecodedCell(header, at);
    at += header >> 2;
  }
}

}  // namespace folvane
