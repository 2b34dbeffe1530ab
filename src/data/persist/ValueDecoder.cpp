#include "data/persist/ValueDecoder.h"

#include <QtEndian>
#include <bit>

#include "data/persist/DecimalText.h"

namespace folvane {

namespace {

constexpr int kCurrencyScale = 4;

template <typename Number>
Number At(QByteArrayView bytes, qsizetype offset = 0) {
  return qFromLittleEndian<Number>(bytes.data() + offset);
}

double DoubleAt(QByteArrayView bytes) { return std::bit_cast<double>(At<quint64>(bytes)); }

void DecodeCurrency(QByteArrayView bytes, ValueSink& sink) {
  const auto value = At<qint64>(bytes);
  const quint64 magnitude = qToLittleEndian(value < 0 ? 0 - quint64(value) : quint64(value));
  const QByteArrayView view(reinterpret_cast<const char*>(&magnitude), sizeof magnitude);
  sink.Decimal(DecimalText(value < 0, view, kCurrencyScale, TrailingZeros::Drop));
}

void DecodeDays(QByteArrayView bytes, ValueSink& sink) {
  const double days = DoubleAt(bytes);
  const std::optional<PersistedMoment> moment = PersistedMoment::OfDays(days);
  moment ? sink.Timestamp(*moment) : sink.Double(days);
}

/// Scale, sign, and the three words of the magnitude, the highest one first.
void DecodeDecimal(QByteArrayView bytes, ValueSink& sink) {
  const QByteArray magnitude = bytes.sliced(8, 8).toByteArray() + bytes.sliced(4, 4).toByteArray();
  sink.Decimal(DecimalText(uchar(bytes[3]) & 0x80, magnitude, uchar(bytes[2]), TrailingZeros::Drop));
}

/// Precision, scale, 1 for a positive number, and the magnitude.
void DecodeNumeric(QByteArrayView bytes, ValueSink& sink) {
  sink.Decimal(DecimalText(bytes[2] == 0, bytes.sliced(3), static_cast<signed char>(bytes[1]), TrailingZeros::Keep));
}

PersistedMoment DateAt(QByteArrayView bytes) {
  PersistedMoment moment;
  moment.year = At<qint16>(bytes);
  moment.month = At<quint16>(bytes, 2);
  moment.day = At<quint16>(bytes, 4);
  return moment;
}

void PutTime(QByteArrayView bytes, PersistedMoment& moment) {
  moment.hour = At<quint16>(bytes);
  moment.minute = At<quint16>(bytes, 2);
  moment.second = At<quint16>(bytes, 4);
}

void DecodeTime(QByteArrayView bytes, ValueSink& sink) {
  PersistedMoment moment;
  PutTime(bytes, moment);
  sink.Time(moment);
}

void DecodeTimestamp(QByteArrayView bytes, ValueSink& sink) {
  PersistedMoment moment = DateAt(bytes);
  PutTime(bytes.sliced(6), moment);
  moment.nanosecond = At<quint32>(bytes, 12);
  sink.Timestamp(moment);
}

void DecodeGuid(QByteArrayView bytes, ValueSink& sink) {
  constexpr int kOrder[]{3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
  constexpr char kDigits[] = "0123456789ABCDEF";
  QByteArray text(1, '{');
  for (const int at : kOrder) {
    if (at < 0) {
      text += '-';
      continue;
    }
    text += kDigits[uchar(bytes[at]) >> 4];
    text += kDigits[uchar(bytes[at]) & 15];
  }
  sink.Guid(text + '}');
}

/// The text ahead of a zero: behind it a field of fixed length may hold what was in memory.
QByteArrayView AheadOfZero(QByteArrayView bytes, qsizetype unit) {
  for (qsizetype at = 0; at + unit <= bytes.size(); at += unit)
    if (bytes[at] == 0 && bytes[at + unit - 1] == 0) return bytes.first(at);
  return bytes;
}

void DecodeText(const ColumnDescriptor& column, QByteArrayView bytes, ValueSink& sink) {
  const bool wide = column.type == AdoType::WChar;
  if (column.flags & ColumnFlag::Fixed) bytes = AheadOfZero(bytes, wide ? 2 : 1);
  wide ? sink.WideText(bytes) : sink.NarrowText(bytes);
}

/// False for a type that has no value of a given size, or a size of its own kind.
bool DecodeScalar(int type, QByteArrayView bytes, ValueSink& sink) {
  switch (type) {
    case AdoType::TinyInt:
      return sink.Integer(At<qint8>(bytes)), true;
    case AdoType::UnsignedTinyInt:
      return sink.Integer(At<quint8>(bytes)), true;
    case AdoType::SmallInt:
      return sink.Integer(At<qint16>(bytes)), true;
    case AdoType::UnsignedSmallInt:
      return sink.Integer(At<quint16>(bytes)), true;
    case AdoType::Integer:
    case AdoType::Error:
      return sink.Integer(At<qint32>(bytes)), true;
    case AdoType::UnsignedInt:
      return sink.Integer(At<quint32>(bytes)), true;
    case AdoType::BigInt:
      return sink.BigInteger(At<qint64>(bytes)), true;
    case AdoType::UnsignedBigInt:
      return sink.UnsignedBigInteger(At<quint64>(bytes)), true;
    case AdoType::Boolean:
      return sink.Boolean(At<quint16>(bytes) != 0), true;
    case AdoType::Single:
      return sink.Single(std::bit_cast<float>(At<quint32>(bytes))), true;
    case AdoType::Double:
      return sink.Double(DoubleAt(bytes)), true;
    case AdoType::Currency:
      return DecodeCurrency(bytes, sink), true;
    case AdoType::Date:
      return DecodeDays(bytes, sink), true;
    default:
      return false;
  }
}

/// A VARIANT as it lies in memory: a type, and from the eighth byte on a value of it.
void DecodeVariant(QByteArrayView bytes, ValueSink& sink) {
  const int type = At<quint16>(bytes);
  if (type == 0 || type == 1) return sink.Empty();
  if (type == AdoType::Decimal) return DecodeDecimal(bytes, sink);
  if (!DecodeScalar(type, bytes.sliced(8), sink)) sink.Bytes(bytes);
}

}  // namespace

void DecodeValue(const ColumnDescriptor& column, QByteArrayView bytes, ValueSink& sink) {
  if (column.IsChapter()) return sink.Empty();
  if (DecodeScalar(column.type, bytes, sink)) return;
  switch (column.type) {
    case AdoType::Char:
    case AdoType::WChar:
      return DecodeText(column, bytes, sink);
    case AdoType::Variant:
      return DecodeVariant(bytes, sink);
    case AdoType::Decimal:
      return DecodeDecimal(bytes, sink);
    case AdoType::Numeric:
    case AdoType::VarNumeric:
      return DecodeNumeric(bytes, sink);
    case AdoType::DbDate:
      return sink.Date(DateAt(bytes));
    case AdoType::DbTime:
      return DecodeTime(bytes, sink);
    case AdoType::DbTimeStamp:
      return DecodeTimestamp(bytes, sink);
    case AdoType::FileTime:
      return sink.Timestamp(PersistedMoment::OfFileTime(At<quint64>(bytes)));
    case AdoType::Guid:
      return DecodeGuid(bytes, sink);
    default:
      return sink.Bytes(bytes);
  }
}

int AdoTypeOf(const ColumnDescriptor& column) {
  const bool fixed = column.flags & ColumnFlag::Fixed, isLong = column.flags & ColumnFlag::Long;
  switch (column.type) {
    case AdoType::Char:
      return isLong ? AdoType::LongVarChar : fixed ? AdoType::Char : AdoType::VarChar;
    case AdoType::WChar:
      return isLong ? AdoType::LongVarWChar : fixed ? AdoType::WChar : AdoType::VarWChar;
    case AdoType::Binary:
      return isLong ? AdoType::LongVarBinary : fixed ? AdoType::Binary : AdoType::VarBinary;
    default:
      return column.type;
  }
}

}  // namespace folvane
