#include "data/persist/ColumnPlan.h"

#include <limits>

#include "base/FileUpdate.h"
#include "data/persist/ValueLayout.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr quint16 kTrue = 0xffff;
constexpr QByteArrayView kHandlerClass("\xB6\x92\xF2\x3F\x04\xB2\xCF\x11\x8D\x23\x00\xAA\x00\x5F\xFE\x58", 16);
constexpr QByteArrayView kResultId("\xD2\xAD\x63\xF6\x02\xEB\xCF\x11\xB0\xE3\x00\xAA\x00\x3F\x00\x0F", 16);

// One set: Auto Recalc and Update Resync 1, then Unique Table, Schema and Catalog, Resync Command and Reshape Name
// empty.
constexpr QByteArrayView kResultProperties(
    "\x01\x00"
    "\xC1\x3C\x8E\xB6\xEB\x6D\xD0\x11\x8D\xF6\x00\xAA\x00\x5F\xFE\x58\x07\x00"
    "\x0B\0\0\0\x04\0\x01\0\0\0\x13\0\0\0\x04\0\x01\0\0\0"
    "\x0D\0\0\0\0\0\x0E\0\0\0\0\0\x0F\0\0\0\0\0\x10\0\0\0\0\0\x12\0\0\0\0\0",
    70);

// Two sets: the rows can be changed and sent back, no time limit, no limit of rows; batches of 15 and what else a
// client's cursor is set to.
constexpr QByteArrayView kContextProperties(
    "\x02\x00"
    "\xBE\x22\xB5\xC8\xF3\x5C\xCE\x11\xAD\xE5\x00\xAA\x00\x44\x77\x3D\x04\x00"
    "\x7F\0\0\0\x02\0\xFF\xFF\x86\0\0\0\x02\0\xFF\xFF\x22\0\0\0\x04\0\0\0\0\0\x49\0\0\0\x04\0\0\0\0\0"
    "\xC1\x3C\x8E\xB6\xEB\x6D\xD0\x11\x8D\xF6\x00\xAA\x00\x5F\xFE\x58\x05\x00"
    "\x04\0\0\0\x04\0\x0F\0\0\0\x05\0\0\0\x04\0\x02\0\0\0\x03\0\0\0\x04\0\x0F\0\0\0"
    "\x07\0\0\0\x04\0\x32\0\0\0\x08\0\0\0\x04\0\x03\0\0\0",
    124);

/// The type that a file has for one of ADO's; texts and bytes have one each.
int StoredType(int type) {
  switch (type) {
    case AdoType::Char:
    case AdoType::VarChar:
    case AdoType::LongVarChar:
      return AdoType::Char;
    case AdoType::Binary:
    case AdoType::VarBinary:
    case AdoType::LongVarBinary:
      return AdoType::Binary;
    case AdoType::WChar:
    case AdoType::VarWChar:
    case AdoType::LongVarWChar:
      return AdoType::WChar;
    default:
      return type;
  }
}

bool IsLongType(int type) {
  return type == AdoType::LongVarChar || type == AdoType::LongVarWChar || type == AdoType::LongVarBinary;
}

bool IsFixedType(int type) { return type == AdoType::Char || type == AdoType::WChar || type == AdoType::Binary; }

bool CountsLength(int storedType) { return IsFixedType(storedType); }

/// The sizes of the types that have one; 0 for those that only texts can stand for.
quint32 SizeOfType(int type) {
  ColumnDescriptor column;
  column.type = quint16(type);
  column.flags = ColumnFlag::Fixed;
  return type == AdoType::VarNumeric ? 19 : quint32(std::max(GivenSize(column), 0));
}

ColumnDescriptor AnyText(ColumnDescriptor column) {
  column.type = AdoType::WChar;
  column.maxLength = kNoLimit;
  column.precision = 0;
  column.scale = 0;
  column.flags &= ~ColumnFlag::Fixed;
  return column;
}

}  // namespace

ColumnDescriptor DescribeForFile(const ColumnInfo& info, int ordinal) {
  ColumnDescriptor column;
  column.ordinal = quint16(ordinal);
  column.name = info.name;
  column.type = quint16(StoredType(info.type));
  column.flags = ColumnFlag::Write;
  if (info.autoNumber) column.autoIncrement = kTrue;
  if (info.nullable) column.flags |= ColumnFlag::Nullable;
  if (!CountsLength(column.type)) {
    column.maxLength = SizeOfType(info.type);
    column.flags |= ColumnFlag::Fixed;
    return column.maxLength ? column : AnyText(column);
  }
  const bool limited = info.definedSize > 0 && info.definedSize < std::numeric_limits<int>::max();
  const quint32 unlimited = column.type == AdoType::WChar ? kNoLimit : quint32(std::numeric_limits<int>::max());
  column.maxLength = limited ? quint32(info.definedSize) : unlimited;
  if (IsLongType(info.type)) column.flags |= ColumnFlag::Long;
  if (IsFixedType(info.type) && limited) column.flags |= ColumnFlag::Fixed;
  return column;
}

std::vector<ColumnDescriptor> OtherDescriptors(const ColumnDescriptor& column) {
  std::vector<ColumnDescriptor> others;
  const auto add = [&](int type) {
    ColumnDescriptor other = column;
    other.type = quint16(type);
    other.maxLength = SizeOfType(type);
    others.push_back(other);
  };
  if (CountsLength(column.type)) {
    ColumnDescriptor any = column;
    any.flags &= ~ColumnFlag::Fixed;
    any.maxLength = kNoLimit;
    others.push_back(any);
  } else if (column.type == AdoType::Single) {
    add(AdoType::Double);
  } else if (GroupOfType(column.type) == TypeGroup::Date) {
    add(AdoType::DbTimeStamp);
  } else if (column.type != AdoType::Numeric && GroupOfType(column.type) == TypeGroup::Number) {
    add(AdoType::BigInt);
    add(AdoType::Double);
  }
  others.push_back(AnyText(column));
  return others;
}

Tablegram FlatTablegram(std::vector<ColumnDescriptor> columns, std::size_t rowCount) {
  constexpr std::size_t kMostColumns = 0xffff;
  if (columns.empty() || columns.size() > kMostColumns)
    throw FileError(u"有 %1 个字段的记录集不能存为文件。"_s.arg(columns.size()));
  Tablegram head;
  head.options.classId = kHandlerClass;
  TablegramSet& set = head.sets.emplace_back();
  set.resultId = kResultId;
  set.visibleColumns = set.totalColumns = quint16(columns.size());
  set.rowCount = quint32(rowCount);
  set.resultProperties = kResultProperties;
  set.contextProperties = kContextProperties;
  for (const ColumnDescriptor& column : columns) {
    set.layouts.push_back(LayoutOf(column, 0));
    set.presenceBits += set.layouts.back().presence;
  }
  set.columns = std::move(columns);
  return head;
}

}  // namespace folvane
