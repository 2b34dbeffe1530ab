#include <QtEndian>
#include <bit>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "data/persist/DecimalText.h"
#include "data/persist/ScalarEncoding.h"
#include "data/persist/ValueEncoder.h"

namespace folvane {

namespace {

constexpr int kMostDecimalScale = 28;
constexpr std::size_t kDecimalMagnitude = 12, kNumericMagnitude = 16;
constexpr int kMostNumericScale = 127;

template <typename Number>
void PutNumber(QByteArray& buffer, Number number) {
  buffer.resize(sizeof number);
  qToLittleEndian(number, buffer.data());
}

std::optional<DecimalParts> PartsOf(const Cell& cell) {
  QByteArray text;
  return cell.kind == Cell::Bytes ? std::nullopt : DecimalParts::Read(CellText(cell, text).trimmed());
}

/// The number as an integer of a type, nothing where it is none.
template <typename Number>
std::optional<Number> WholeNumber(const Cell& cell) {
  if (cell.kind == Cell::Integer)
    return std::in_range<Number>(cell.integer) ? std::optional(Number(cell.integer)) : std::nullopt;
  std::optional<DecimalParts> parts = PartsOf(cell);
  if (!parts || !parts->Rescale(0)) return std::nullopt;
  Number number = 0;
  const QByteArray digits = (parts->negative ? "-" : "") + (parts->digits.isEmpty() ? "0" : parts->digits);
  const auto read = std::from_chars(digits.begin(), digits.end(), number);
  return read.ec == std::errc() && read.ptr == digits.end() ? std::optional(number) : std::nullopt;
}

template <typename Number>
bool EncodeWhole(const Cell& cell, QByteArray& buffer) {
  const std::optional<Number> number = WholeNumber<Number>(cell);
  if (number) PutNumber(buffer, *number);
  return number.has_value();
}

bool EncodeBoolean(const Cell& cell, QByteArray& buffer) {
  const std::optional<qint64> number = WholeNumber<qint64>(cell);
  if (!number || *number < -1 || *number > 1) return false;
  PutNumber(buffer, quint16(*number ? 0xffff : 0));
  return true;
}

std::optional<double> RealNumber(const Cell& cell) {
  if (cell.kind == Cell::Real) return cell.real;
  constexpr qint64 kLimit = qint64(1) << 53;  // beyond it not every whole number is one of these
  if (cell.kind == Cell::Integer)
    return cell.integer >= -kLimit && cell.integer <= kLimit ? std::optional(double(cell.integer)) : std::nullopt;
  if (cell.kind != Cell::Text) return std::nullopt;
  // A text is kept as a number only where it reads the same afterwards.
  const QByteArray text = cell.bytes.trimmed().toByteArray();
  bool read = false;
  const double number = text.toDouble(&read);
  QByteArray back;
  Cell real;
  real.kind = Cell::Real;
  real.real = number;
  const auto before = DecimalParts::Read(text), after = DecimalParts::Read(CellText(real, back));
  const bool same = read && before && after && before->digits == after->digits && before->scale == after->scale;
  return same ? std::optional(number) : std::nullopt;
}

/// Whether a single shows the number, as it is or as it is written.
bool IsSingle(double number) {
  const auto single = float(number);
  return double(single) == number || std::isnan(number) || AsWritten(single) == number;
}

bool EncodeReal(const Cell& cell, int type, QByteArray& buffer) {
  const std::optional<double> number = RealNumber(cell);
  if (!number || (type == AdoType::Single && !IsSingle(*number))) return false;
  if (type == AdoType::Single)
    PutNumber(buffer, std::bit_cast<quint32>(float(*number)));
  else
    PutNumber(buffer, std::bit_cast<quint64>(*number));
  return true;
}

bool EncodeCurrency(const Cell& cell, QByteArray& buffer) {
  constexpr int kScale = 4;
  std::optional<DecimalParts> parts = PartsOf(cell);
  if (!parts || !parts->Rescale(kScale)) return false;
  qint64 number = 0;
  const QByteArray digits = (parts->negative ? "-" : "") + (parts->digits.isEmpty() ? "0" : parts->digits);
  const auto read = std::from_chars(digits.begin(), digits.end(), number);
  if (read.ec != std::errc()) return false;
  PutNumber(buffer, number);
  return true;
}

bool EncodeDecimal(const Cell& cell, QByteArray& buffer) {
  const std::optional<DecimalParts> parts = PartsOf(cell);
  char magnitude[kDecimalMagnitude];
  if (!parts || parts->scale > kMostDecimalScale || !parts->PutMagnitude(magnitude, sizeof magnitude)) return false;
  buffer.fill('\0', 16);
  buffer[2] = char(parts->scale);
  buffer[3] = char(parts->negative ? 0x80 : 0);
  buffer.replace(4, 4, magnitude + 8, 4);
  buffer.replace(8, 8, magnitude, 8);
  return true;
}

bool EncodeNumeric(const Cell& cell, const ColumnDescriptor& column, QByteArray& buffer) {
  std::optional<DecimalParts> parts = PartsOf(cell);
  const bool exact = column.type == AdoType::Numeric;
  if (!parts || (exact && !parts->Rescale(column.scale))) return false;
  if (parts->scale > kMostNumericScale || (exact && parts->digits.size() > qsizetype(column.precision))) return false;
  buffer.fill('\0', qsizetype(3 + kNumericMagnitude));
  buffer[0] = char(exact ? column.precision : quint32(std::max<qsizetype>(parts->digits.size(), 1)));
  buffer[1] = char(parts->scale);
  buffer[2] = char(!parts->negative);
  if (!parts->PutMagnitude(buffer.data() + 3, kNumericMagnitude)) return false;
  while (!exact && buffer.size() > 4 && buffer.endsWith('\0')) buffer.chop(1);
  return true;
}

}  // namespace

bool EncodeNumberValue(const Cell& cell, const ColumnDescriptor& column, QByteArray& buffer) {
  switch (column.type) {
    case AdoType::TinyInt:
      return EncodeWhole<qint8>(cell, buffer);
    case AdoType::UnsignedTinyInt:
      return EncodeWhole<quint8>(cell, buffer);
    case AdoType::SmallInt:
      return EncodeWhole<qint16>(cell, buffer);
    case AdoType::UnsignedSmallInt:
      return EncodeWhole<quint16>(cell, buffer);
    case AdoType::Integer:
    case AdoType::Error:
      return EncodeWhole<qint32>(cell, buffer);
    case AdoType::UnsignedInt:
      return EncodeWhole<quint32>(cell, buffer);
    case AdoType::BigInt:
      return EncodeWhole<qint64>(cell, buffer);
    case AdoType::UnsignedBigInt:
      return EncodeWhole<quint64>(cell, buffer);
    case AdoType::Boolean:
      return EncodeBoolean(cell, buffer);
    case AdoType::Single:
    case AdoType::Double:
      return EncodeReal(cell, column.type, buffer);
    case AdoType::Currency:
      return EncodeCurrency(cell, buffer);
    case AdoType::Decimal:
      return EncodeDecimal(cell, buffer);
    default:
      return EncodeNumeric(cell, column, buffer);
  }
}

}  // namespace folvane
