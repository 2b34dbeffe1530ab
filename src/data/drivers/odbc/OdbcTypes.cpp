#include "data/drivers/odbc/OdbcTypes.h"

#include <array>
#include <sqlext.h>
#include <sqlucode.h>

#include "data/drivers/odbc/OdbcStatement.h"

namespace folvane {

namespace {

constexpr int kUnlimited = 2147483647;
constexpr int kMostBytesOfCharacter = 4;  // UTF-8

struct KnownType {
  SQLSMALLINT sqlType;
  int adoType;
  int size;  // 0: that of the column
  Cell::Kind kind;
};

constexpr std::array kKnownTypes{
    KnownType{SQL_CHAR, AdoType::Char, 0, Cell::Text},
    KnownType{SQL_VARCHAR, AdoType::VarChar, 0, Cell::Text},
    KnownType{SQL_LONGVARCHAR, AdoType::LongVarChar, kUnlimited, Cell::Text},
    KnownType{SQL_WCHAR, AdoType::WChar, 0, Cell::Text},
    KnownType{SQL_WVARCHAR, AdoType::VarWChar, 0, Cell::Text},
    KnownType{SQL_WLONGVARCHAR, AdoType::LongVarWChar, kUnlimited, Cell::Text},
    KnownType{SQL_BIT, AdoType::Boolean, 2, Cell::Integer},
    KnownType{SQL_TINYINT, AdoType::UnsignedTinyInt, 1, Cell::Integer},
    KnownType{SQL_SMALLINT, AdoType::SmallInt, 2, Cell::Integer},
    KnownType{SQL_INTEGER, AdoType::Integer, 4, Cell::Integer},
    KnownType{SQL_BIGINT, AdoType::BigInt, 8, Cell::Integer},
    KnownType{SQL_REAL, AdoType::Single, 4, Cell::Real},
    KnownType{SQL_FLOAT, AdoType::Double, 8, Cell::Real},
    KnownType{SQL_DOUBLE, AdoType::Double, 8, Cell::Real},
    KnownType{SQL_NUMERIC, AdoType::Numeric, 19, Cell::Text},
    KnownType{SQL_DECIMAL, AdoType::Numeric, 19, Cell::Text},
    KnownType{SQL_TYPE_DATE, AdoType::DbDate, 6, Cell::Text},
    KnownType{SQL_TYPE_TIME, AdoType::DbTime, 6, Cell::Text},
    KnownType{SQL_TYPE_TIMESTAMP, AdoType::DbTimeStamp, 16, Cell::Text},
    KnownType{SQL_BINARY, AdoType::Binary, 0, Cell::Bytes},
    KnownType{SQL_VARBINARY, AdoType::VarBinary, 0, Cell::Bytes},
    KnownType{SQL_LONGVARBINARY, AdoType::LongVarBinary, kUnlimited, Cell::Bytes},
};

struct NamedType {
  const char* name;
  SQLSMALLINT sqlType;
};

// Types whose SQL type depends on settings of PostgreSQL's driver, by what they are.
constexpr std::array kNamedTypes{
    NamedType{"bool", SQL_BIT},     NamedType{"varchar", SQL_VARCHAR},  NamedType{"char", SQL_CHAR},
    NamedType{"bpchar", SQL_CHAR},  NamedType{"text", SQL_LONGVARCHAR}, NamedType{"bytea", SQL_LONGVARBINARY},
    NamedType{"name", SQL_VARCHAR},
};

// Any other type that PostgreSQL's driver gives as text comes with a made-up length.
SQLSMALLINT TypeInPostgres(const QByteArray& name, SQLSMALLINT described) {
  for (const NamedType& known : kNamedTypes)
    if (name == known.name) return known.sqlType;
  return described == SQL_VARCHAR ? SQLSMALLINT(SQL_LONGVARCHAR) : described;
}

KnownType TypeOf(SQLSMALLINT sqlType) {
  for (const KnownType& known : kKnownTypes)
    if (known.sqlType == sqlType) return known;
  return {sqlType, AdoType::LongVarChar, kUnlimited, Cell::Text};
}

QByteArray TextAttribute(OdbcStatement& statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<char, 256> text{};
  statement.Check(SQLColAttribute(statement.Handle(), column, attribute, text.data(), text.size(), nullptr, nullptr));
  return text.data();
}

OdbcColumn DescribeColumn(DialectKind dialect, OdbcStatement& statement, SQLUSMALLINT number) {
  std::array<SQLCHAR, 512> name{};
  SQLSMALLINT length = 0, sqlType = 0, digits = 0, nullable = 0;
  SQLULEN size = 0;
  statement.Check(SQLDescribeCol(statement.Handle(), number, name.data(), SQLSMALLINT(name.size()), &length, &sqlType,
                                 &size, &digits, &nullable));
  const QByteArray typeName = TextAttribute(statement, number, SQL_DESC_TYPE_NAME);
  OdbcColumn column = DescribeOdbcType(dialect, sqlType, typeName, qint64(size));
  column.info.name = QString::fromUtf8(reinterpret_cast<const char*>(name.data()));
  column.info.nullable = nullable != SQL_NO_NULLS;
  return column;
}

}  // namespace

OdbcColumn DescribeOdbcType(DialectKind dialect, SQLSMALLINT sqlType, const QByteArray& typeName, qint64 size) {
  const KnownType known = TypeOf(dialect == DialectKind::PostgreSql ? TypeInPostgres(typeName, sqlType) : sqlType);
  OdbcColumn column;
  column.kind = known.kind;
  column.info.type = known.adoType;
  const bool limited = size > 0 && size < kUnlimited;
  column.info.definedSize = known.size ? known.size : limited ? int(size) : kUnlimited;
  if (known.size == 0 && limited) column.mostBytes = known.kind == Cell::Bytes ? size : size * kMostBytesOfCharacter;
  return column;
}

std::vector<OdbcColumn> DescribeResult(DialectKind dialect, OdbcStatement& statement) {
  SQLSMALLINT count = 0;
  statement.Check(SQLNumResultCols(statement.Handle(), &count));
  std::vector<OdbcColumn> columns;
  for (SQLUSMALLINT number = 1; number <= count; ++number)
    columns.push_back(DescribeColumn(dialect, statement, number));
  return columns;
}

}  // namespace folvane
