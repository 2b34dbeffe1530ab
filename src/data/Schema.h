#pragma once

#include <QString>
#include <vector>

namespace folvane {

/// The ADO type numbers that drivers and files give to columns.
namespace AdoType {
enum : int {
  SmallInt = 2,
  Integer = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  Error = 10,
  Boolean = 11,
  Variant = 12,
  Decimal = 14,
  TinyInt = 16,
  UnsignedTinyInt = 17,
  UnsignedSmallInt = 18,
  UnsignedInt = 19,
  BigInt = 20,
  UnsignedBigInt = 21,
  FileTime = 64,
  Guid = 72,
  Binary = 128,
  Char = 129,
  WChar = 130,
  Numeric = 131,
  DbDate = 133,
  DbTime = 134,
  DbTimeStamp = 135,
  Chapter = 136,
  VarNumeric = 139,
  VarChar = 200,
  LongVarChar = 201,
  VarWChar = 202,
  LongVarWChar = 203,
  VarBinary = 204,
  LongVarBinary = 205,
};
}  // namespace AdoType

/// The four groups of types that comparisons and rewrites treat alike.
enum class TypeGroup { Text, Number, Date, Binary };

TypeGroup GroupOfType(int adoType);

/// One column of a table or of a result.
struct ColumnInfo {
  QString name;                 ///< as the database spells it
  int type = AdoType::VarChar;  ///< ADO type number
  int definedSize = 0;          ///< as declared; see FitsColumn for texts; 2147483647 for long columns
  bool nullable = true;
  bool autoNumber = false;  ///< the database gives the value of a new row
  bool hasDefault = false;  ///< the database gives one where a new row has none, as far as it is told
};

/// The column of that name without regard to case, -1 when there is none.
int IndexOfColumn(const std::vector<ColumnInfo>& columns, const QString& name);

/// One table of the database.
struct TableInfo {
  QString name;  ///< as the database spells it
  std::vector<ColumnInfo> columns;
  std::vector<int> key;  ///< indexes of the primary key's columns, or of a unique index; empty when none

  int IndexOf(const QString& column) const { return IndexOfColumn(columns, column); }
};

}  // namespace folvane
