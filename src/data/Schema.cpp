#include "data/Schema.h"

namespace folvane {

TypeGroup GroupOfType(int adoType) {
  switch (adoType) {
    case AdoType::SmallInt:
    case AdoType::Integer:
    case AdoType::Single:
    case AdoType::Double:
    case AdoType::Currency:
    case AdoType::Boolean:
    case AdoType::Decimal:
    case AdoType::TinyInt:
    case AdoType::UnsignedTinyInt:
    case AdoType::UnsignedSmallInt:
    case AdoType::UnsignedInt:
    case AdoType::BigInt:
    case AdoType::UnsignedBigInt:
    case AdoType::Numeric:
    case AdoType::VarNumeric:
      return TypeGroup::Number;
    case AdoType::Date:
    case AdoType::DbDate:
    case AdoType::DbTime:
    case AdoType::DbTimeStamp:
    case AdoType::FileTime:
      return TypeGroup::Date;
    case AdoType::Binary:
    case AdoType::VarBinary:
    case AdoType::LongVarBinary:
      return TypeGroup::Binary;
    default:
      return TypeGroup::Text;
  }
}

int IndexOfColumn(const std::vector<ColumnInfo>& columns, const QString& name) {
  // A text keeps its length when its case does not count, and most names differ there already.
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const QString& column = columns[i].name;
    if (column.size() == name.size() && column.compare(name, Qt::CaseInsensitive) == 0) return int(i);
  }
  return -1;
}

}  // namespace folvane
