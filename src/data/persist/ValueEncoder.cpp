#include "data/persist/ValueEncoder.h"

#include <QtEndian>
#include <algorithm>
#include <bit>
#include <charconv>

#include "base/CodePage.h"
#include "data/persist/ScalarEncoding.h"
#include "data/persist/Utf16.h"

namespace folvane {

namespace {

constexpr QByteArrayView kNarrowBlank(" ", 1), kWideBlank(" \0", 2);

/// {01234567-89AB-CDEF-0123-456789ABCDEF}, in the order in which files hold the bytes.
bool EncodeGuid(QByteArrayView text, QByteArray& buffer) {
  if (text.size() != 38 || text.front() != '{' || text.back() != '}') return false;
  for (const int at : {9, 14, 19, 24})
    if (text[at] != '-') return false;
  const QByteArray digits = text.sliced(1, 36).toByteArray().replace("-", "");
  buffer = QByteArray::fromHex(digits);
  if (digits.size() != 32 || buffer.toHex() != digits.toLower()) return false;
  std::reverse(buffer.begin(), buffer.begin() + 4);
  std::reverse(buffer.begin() + 4, buffer.begin() + 6);
  std::reverse(buffer.begin() + 6, buffer.begin() + 8);
  return true;
}

template <typename Number>
QByteArrayView Written(Number number, QByteArray& buffer) {
  buffer.resize(32);
  const char* end = std::to_chars(buffer.begin(), buffer.end(), number).ptr;
  return QByteArrayView(buffer.constData(), end);
}

}  // namespace

QByteArrayView CellText(const Cell& cell, QByteArray& buffer) {
  switch (cell.kind) {
    case Cell::Integer:
      return Written(cell.integer, buffer);
    case Cell::Real:
      return Written(cell.real, buffer);
    default:
      return cell.bytes;
  }
}

bool ValueEncoder::Encode(const Cell& cell, QByteArrayView& bytes) {
  switch (column_.type) {
    case AdoType::Char:
    case AdoType::WChar:
      return EncodeText(cell, bytes);
    case AdoType::Binary:
      return EncodeBytes(cell, bytes);
    default:
      break;
  }
  bool fits = false;
  if (column_.type == AdoType::Guid)
    fits = cell.kind == Cell::Text && EncodeGuid(cell.bytes, buffer_);
  else if (column_.type == AdoType::Variant)
    fits = EncodeVariant(cell);
  else if (GroupOfType(column_.type) == TypeGroup::Date)
    fits = EncodeMomentValue(cell, column_.type, buffer_);
  else
    fits = EncodeNumberValue(cell, column_, buffer_);
  bytes = buffer_;
  return fits;
}

bool ValueEncoder::EncodeText(const Cell& cell, QByteArrayView& bytes) {
  const QByteArrayView text = CellText(cell, text_);
  if (column_.type == AdoType::WChar) {
    Utf8ToUtf16(text, buffer_);
    bytes = buffer_;
    return Fit(bytes, kWideBlank);
  }
  const bool exact = Utf8ToCodePage(text, buffer_);
  bytes = buffer_;
  return exact && Fit(bytes, kNarrowBlank);
}

bool ValueEncoder::EncodeBytes(const Cell& cell, QByteArrayView& bytes) {
  bytes = CellText(cell, text_);
  const bool fixed = column_.flags & ColumnFlag::Fixed;
  return fixed ? quint64(bytes.size()) == column_.maxLength : quint64(bytes.size()) <= column_.maxLength;
}

/// Whether what the buffer holds is short enough; in a field of fixed length blanks fill it up, or go where the
/// database counts its length in characters and not in bytes.
bool ValueEncoder::Fit(QByteArrayView& bytes, QByteArrayView blank) {
  const quint64 most = quint64(column_.maxLength) * quint64(blank.size());
  if (!(column_.flags & ColumnFlag::Fixed)) return quint64(bytes.size()) <= most;
  while (quint64(buffer_.size()) > most && buffer_.endsWith(blank)) buffer_.chop(blank.size());
  while (quint64(buffer_.size()) < most) buffer_.append(blank);
  bytes = buffer_;
  return quint64(bytes.size()) == most;
}

/// Numbers only, each as the type that holds it.
bool ValueEncoder::EncodeVariant(const Cell& cell) {
  if (cell.kind != Cell::Integer && cell.kind != Cell::Real) return false;
  const bool whole = cell.kind == Cell::Integer;
  buffer_.fill('\0', 16);
  qToLittleEndian(quint16(whole ? AdoType::BigInt : AdoType::Double), buffer_.data());
  qToLittleEndian(whole ? quint64(cell.integer) : std::bit_cast<quint64>(cell.real), buffer_.data() + 8);
  return true;
}

}  // namespace folvane
