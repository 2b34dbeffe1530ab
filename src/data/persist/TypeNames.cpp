#include "data/persist/TypeNames.h"

#include "data/Schema.h"

namespace folvane {

namespace {

struct NamedNumber {
  quint32 number;
  QByteArrayView name;
};

constexpr NamedNumber kTypes[]{
    {AdoType::SmallInt, "adSmallInt"},
    {AdoType::Integer, "adInteger"},
    {AdoType::Single, "adSingle"},
    {AdoType::Double, "adDouble"},
    {AdoType::Currency, "adCurrency"},
    {AdoType::Date, "adDate"},
    {AdoType::Error, "adError"},
    {AdoType::Boolean, "adBoolean"},
    {AdoType::Variant, "adVariant"},
    {AdoType::Decimal, "adDecimal"},
    {AdoType::TinyInt, "adTinyInt"},
    {AdoType::UnsignedTinyInt, "adUnsignedTinyInt"},
    {AdoType::UnsignedSmallInt, "adUnsignedSmallInt"},
    {AdoType::UnsignedInt, "adUnsignedInt"},
    {AdoType::BigInt, "adBigInt"},
    {AdoType::UnsignedBigInt, "adUnsignedBigInt"},
    {AdoType::FileTime, "adFileTime"},
    {AdoType::Guid, "adGUID"},
    {AdoType::Binary, "adBinary"},
    {AdoType::Char, "adChar"},
    {AdoType::WChar, "adWChar"},
    {AdoType::Numeric, "adNumeric"},
    {AdoType::DbDate, "adDBDate"},
    {AdoType::DbTime, "adDBTime"},
    {AdoType::DbTimeStamp, "adDBTimeStamp"},
    {AdoType::Chapter, "adChapter"},
    {AdoType::VarNumeric, "adVarNumeric"},
    {AdoType::VarChar, "adVarChar"},
    {AdoType::LongVarChar, "adLongVarChar"},
    {AdoType::VarWChar, "adVarWChar"},
    {AdoType::LongVarWChar, "adLongVarWChar"},
    {AdoType::VarBinary, "adVarBinary"},
    {AdoType::LongVarBinary, "adLongVarBinary"},
};

constexpr NamedNumber kFlags[]{
    {0x02, "mayDefer"},    {0x04, "write"},           {0x08, "writeUnknown"}, {0x10, "fixed"},
    {0x20, "nullable"},    {0x40, "mayBeNull"},       {0x80, "long"},         {0x100, "rowId"},
    {0x200, "rowVersion"}, {0x1000, "cacheDeferred"}, {0x2000, "chapter"},    {0x4000, "negativeScale"},
    {0x8000, "key"},
};

}  // namespace

QByteArrayView AdoTypeName(int type) {
  for (const NamedNumber& known : kTypes)
    if (known.number == quint32(type)) return known.name;
  return {};
}

std::vector<QByteArrayView> ColumnFlagNames(quint32 flags) {
  std::vector<QByteArrayView> names;
  for (const NamedNumber& flag : kFlags)
    if (flags & flag.number) names.push_back(flag.name);
  return names;
}

}  // namespace folvane
