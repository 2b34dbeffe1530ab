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

int TableInfo::IndexOf(const QString& column) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].name.compare(column, Qt::CaseInsensitive) == 0) return int(i);
  return -1;
}

}  // namespace folvane
