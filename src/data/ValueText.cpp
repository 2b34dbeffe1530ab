#include "data/ValueText.h"

#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include <folvane/DataError.h>

#include "data/Utf8.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

// A double holds any decimal number of 15 digits; of a longer one it would lose the last.
bool IsTooExactForDouble(const QString& number) {
  static const QRegularExpression pattern(u"^-?0*(\\d*)(?:\\.(\\d*?)0*)?$"_s);
  const QRegularExpressionMatch match = pattern.match(number);
  return match.hasMatch() && match.capturedLength(1) + match.capturedLength(2) > 15;
}

// Exact numbers beyond 64 bits and beyond a double stay text.
QVariant NumberFromText(const QString& text, int type) {
  const QString trimmed = text.trimmed();
  bool whole = false;
  const qint64 integer = trimmed.toLongLong(&whole);
  if (whole) return integer;
  const bool exact = type != AdoType::Single && type != AdoType::Double;
  if (exact && IsTooExactForDouble(trimmed)) return trimmed;
  bool real = false;
  const double number = trimmed.toDouble(&real);
  return real ? QVariant(number) : QVariant();
}

bool IsCount(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return true;
    default:
      return false;
  }
}

bool IsWhole(int type) {
  switch (type) {
    case AdoType::SmallInt:
    case AdoType::Integer:
    case AdoType::TinyInt:
    case AdoType::UnsignedTinyInt:
    case AdoType::UnsignedSmallInt:
    case AdoType::UnsignedInt:
    case AdoType::BigInt:
    case AdoType::UnsignedBigInt:
      return true;
    default:
      return false;
  }
}

// A column of whole numbers takes the nearest one, of two as near the even one. Invalid where there is none.
QVariant NumberForColumn(const QVariant& value, int type) {
  const QVariant number = IsCount(value)                        ? QVariant(value.toLongLong())
                          : value.typeId() == QMetaType::Double ? value
                                                                : NumberFromText(ValueText(value), type);
  if (number.typeId() == QMetaType::QString) return IsWhole(type) ? QVariant() : number;
  if (number.typeId() != QMetaType::Double) return number;
  if (!std::isfinite(number.toDouble())) return {};
  if (!IsWhole(type)) return number;
  constexpr double kBeyond = 9223372036854775808.0;  // 2^63
  const double nearest = std::nearbyint(number.toDouble());
  return std::abs(nearest) < kBeyond ? QVariant(qint64(nearest)) : QVariant();
}

QVariant DateFromText(const QString& text, int type) {
  const QDateTime moment = ReadDateTime(text);
  if (!moment.isValid()) return {};
  return type == AdoType::DbDate ? QVariant(moment.date()) : QVariant(moment);
}

// Rounded up, so that a fraction of a second is never taken for none.
int Milliseconds(QStringView fraction) { return std::min(999, int(std::ceil(fraction.toDouble() * 1000))); }

[[noreturn]] void ThrowUnfit(const QVariant& value, const ColumnInfo& column, const QString& wanted) {
  throw DataError(DataErrorKind::Conversion,
                  u"“%1”不能作为字段“%2”的值：该字段要求%3。"_s.arg(ValueText(value), column.name, wanted));
}

}  // namespace

QString ValueText(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      return {};
    case QMetaType::Double:
      return QString::number(value.toDouble(), 'g', 15);
    case QMetaType::QDate:
      return value.toDate().toString(u"yyyy-MM-dd"_s);
    case QMetaType::QDateTime: {
      const QDateTime moment = value.toDateTime();
      const bool midnight = moment.time() == QTime(0, 0);
      return moment.toString(midnight ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s);
    }
    case QMetaType::QByteArray:
      return TextOfUtf8(value.toByteArray());
    default:
      return value.toString();
  }
}

QDateTime ReadDateTime(const QString& text) {
  static const QRegularExpression pattern(
      u"^\\s*(\\d{4})([-/.]?)(\\d{1,2})\\2(\\d{1,2})(?:[ T](\\d{1,2}):(\\d{2})(?::(\\d{2})(\\.\\d+)?)?)?\\s*$"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  if (match.capturedView(2).isEmpty() && (match.capturedLength(3) != 2 || match.capturedLength(4) != 2)) return {};
  const auto part = [&](int group) { return match.capturedView(group).toInt(); };
  const QDate date(part(1), part(3), part(4));
  const QTime time(part(5), part(6), part(7), Milliseconds(match.capturedView(8)));
  return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

QVariant DecodeCell(const Cell& cell, const ColumnInfo& column) {
  if (cell.kind == Cell::Null) return {};
  switch (GroupOfType(column.type)) {
    case TypeGroup::Number:
      if (cell.kind == Cell::Text) {
        const QVariant number = NumberFromText(QString::fromUtf8(cell.bytes), column.type);
        return number.isValid() ? number : QVariant(TextOfUtf8(cell.bytes));
      }
      return cell.ToVariant();
    case TypeGroup::Date:
      if (cell.kind == Cell::Text) {
        const QVariant date = DateFromText(QString::fromUtf8(cell.bytes), column.type);
        return date.isValid() ? date : QVariant(TextOfUtf8(cell.bytes));
      }
      return ValueText(cell.ToVariant());
    case TypeGroup::Text:
      return cell.kind == Cell::Text ? QVariant(TextOfUtf8(cell.bytes)) : QVariant(ValueText(cell.ToVariant()));
    case TypeGroup::Binary:
      return cell.ToVariant();
  }
  return {};
}

Cell CellOf(const QVariant& value, QByteArray& held) {
  Cell cell;
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      return cell;
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Bool:
      cell.kind = Cell::Integer;
      cell.integer = value.toLongLong();
      return cell;
    case QMetaType::Double:
      cell.kind = Cell::Real;
      cell.real = value.toDouble();
      return cell;
    case QMetaType::QByteArray:
      cell.kind = Cell::Bytes;
      held = value.toByteArray();
      break;
    case QMetaType::QDateTime:
      cell.kind = Cell::Text;
      held = value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s).toUtf8();
      break;
    case QMetaType::QDate:
      cell.kind = Cell::Text;
      held = value.toDate().toString(u"yyyy-MM-dd"_s).toUtf8();
      break;
    default:
      cell.kind = Cell::Text;
      held = value.toString().toUtf8();
  }
  cell.bytes = held;
  return cell;
}

QVariant FitToColumn(const QVariant& value, const ColumnInfo& column) {
  if (!value.isValid() || value.isNull()) return {};
  const TypeGroup group = GroupOfType(column.type);
  const bool isText = value.typeId() == QMetaType::QString;
  switch (group) {
    case TypeGroup::Number: {
      if (isText && value.toString().trimmed().isEmpty()) return {};
      const QVariant number = NumberForColumn(value, column.type);
      if (number.isValid()) return number;
      const bool isNumber = NumberFromText(ValueText(value), column.type).isValid();
      ThrowUnfit(value, column, isNumber && IsWhole(column.type) ? u"整数"_s : u"数字"_s);
    }
    case TypeGroup::Date: {
      if (value.typeId() == QMetaType::QDate || value.typeId() == QMetaType::QDateTime) return value;
      if (value.toString().trimmed().isEmpty()) return {};
      const QVariant date = DateFromText(value.toString(), column.type);
      if (!date.isValid()) ThrowUnfit(value, column, u"日期"_s);
      return date;
    }
    case TypeGroup::Text:
      return isText ? value : QVariant(ValueText(value));
    case TypeGroup::Binary:
      return value.typeId() == QMetaType::QByteArray ? value : QVariant(value.toString().toUtf8());
  }
  return {};
}

}  // namespace folvane
