#include "data/persist/ValueLayout.h"

#include "data/persist/ByteCursor.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr uchar kNumericPrologue = 3;  // precision, scale and sign, ahead of the digits

}  // namespace

int GivenSize(const ColumnDescriptor& column) {
  if (column.IsChapter()) return 0;
  switch (column.type) {
    case AdoType::TinyInt:
    case AdoType::UnsignedTinyInt:
      return 1;
    case AdoType::SmallInt:
    case AdoType::UnsignedSmallInt:
    case AdoType::Boolean:
      return 2;
    case AdoType::Integer:
    case AdoType::UnsignedInt:
    case AdoType::Single:
    case AdoType::Error:
      return 4;
    case AdoType::DbDate:
    case AdoType::DbTime:
      return 6;
    case AdoType::Double:
    case AdoType::Currency:
    case AdoType::Date:
    case AdoType::BigInt:
    case AdoType::UnsignedBigInt:
    case AdoType::FileTime:
      return 8;
    case AdoType::Decimal:
    case AdoType::Guid:
    case AdoType::DbTimeStamp:
    case AdoType::Variant:
      return 16;
    case AdoType::Numeric:
      return 19;
    default:
      return -1;
  }
}

ValueLayout LayoutOf(const ColumnDescriptor& column, std::size_t offset) {
  ValueLayout layout;
  layout.presence = column.HasPresenceBit();
  if (const int size = GivenSize(column); size >= 0) {
    layout.size = std::size_t(size);
    return layout;
  }
  const bool isText = column.type == AdoType::Char || column.type == AdoType::WChar;
  if (!isText && column.type != AdoType::Binary && column.type != AdoType::VarNumeric)
    throw BrokenTablegram(offset, u"字段“%1”的类型 %2 无法识别。"_s.arg(column.name).arg(column.type));
  if (column.type == AdoType::VarNumeric) {
    layout.least = kNumericPrologue + 1;
    layout.most = 255;
  }
  if (column.type == AdoType::WChar) layout.unit = 2;
  const std::size_t longest = std::size_t(column.maxLength) * layout.unit;
  layout.kind = longest > 255 ? ValueLayout::LongCount : ValueLayout::ByteCount;
  if (longest > 255 || !(column.flags & ColumnFlag::Fixed) || column.type == AdoType::VarNumeric) return layout;
  // Rows of such columns alone would take no room, and a file of a few bytes could hold any number of them.
  if (longest == 0 && !layout.presence) throw BrokenTablegram(offset, u"字段“%1”的长度为 0。"_s.arg(column.name));
  layout.kind = ValueLayout::Given;
  layout.size = longest;
  return layout;
}

}  // namespace folvane
