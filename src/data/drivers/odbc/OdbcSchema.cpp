#include "data/drivers/odbc/OdbcSchema.h"

#include <sqlext.h>

#include "data/RowStore.h"
#include "data/drivers/Driver.h"
#include "data/drivers/odbc/OdbcRows.h"
#include "data/drivers/odbc/OdbcStatement.h"
#include "data/drivers/odbc/OdbcTypes.h"

namespace folvane {

namespace {

constexpr const char* kPostgresColumns = R"(
SELECT c.relname, a.attname,
       CASE WHEN t.typtype = 'd' THEN b.typname ELSE t.typname END,
       CASE WHEN a.atttypmod > 4 THEN a.atttypmod - 4 WHEN t.typtypmod > 4 THEN t.typtypmod - 4 ELSE 0 END,
       CASE WHEN a.attnotnull THEN 1 ELSE 0 END,
       CASE WHEN a.attidentity <> '' OR pg_get_expr(d.adbin, d.adrelid) LIKE 'nextval(%' THEN 1 ELSE 0 END,
       CASE WHEN d.adbin IS NULL THEN 0 ELSE 1 END
FROM (SELECT oid, relname FROM pg_catalog.pg_class
      WHERE lower(relname::text) = lower(?) AND relkind IN ('r', 'p', 'v', 'm', 'f')
            AND pg_catalog.pg_table_is_visible(oid)
      ORDER BY CASE WHEN relname::text = ? THEN 0 ELSE 1 END, relname LIMIT 1) c
JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped
JOIN pg_catalog.pg_type t ON t.oid = a.atttypid
LEFT JOIN pg_catalog.pg_type b ON b.oid = t.typbasetype
LEFT JOIN pg_catalog.pg_attrdef d ON d.adrelid = a.attrelid AND d.adnum = a.attnum
ORDER BY a.attnum)";

// The columns of the primary key, or else of the narrowest unique index that tells every row from the others.
constexpr const char* kPostgresKey = R"(
SELECT a.attname
FROM (SELECT x.indrelid, x.indkey, x.indnkeyatts FROM pg_catalog.pg_index x
      JOIN pg_catalog.pg_class c ON c.oid = x.indrelid
      WHERE c.relname::text = ? AND pg_catalog.pg_table_is_visible(c.oid)
            AND x.indisunique AND x.indisvalid AND x.indpred IS NULL AND x.indexprs IS NULL
            AND NOT EXISTS (SELECT 1 FROM pg_catalog.pg_attribute n
                            WHERE n.attrelid = x.indrelid AND n.attnum = ANY (x.indkey) AND NOT n.attnotnull)
      ORDER BY x.indisprimary DESC, x.indnkeyatts, x.indexrelid LIMIT 1) i,
     unnest(i.indkey) WITH ORDINALITY AS k(number, place)
JOIN pg_catalog.pg_attribute a ON a.attnum = k.number
WHERE a.attrelid = i.indrelid AND k.place <= i.indnkeyatts
ORDER BY k.place)";

// ICU's collations first: those of the C library are there only where the system has the locale.
// https://www.postgresql.org/docs/15/collation.html
constexpr const char* kPostgresPinyin = R"(
SELECT collname FROM pg_catalog.pg_collation
WHERE collnamespace = 'pg_catalog'::regnamespace AND collencoding IN (-1, pg_char_to_encoding(getdatabaseencoding()))
      AND collname IN ('zh-x-icu', 'zh-Hans-x-icu', 'zh_CN.utf8', 'zh_CN')
ORDER BY CASE collname WHEN 'zh-x-icu' THEN 1 WHEN 'zh-Hans-x-icu' THEN 2 ELSE 3 END LIMIT 1)";

// PostgreSQL's internal type names as SQL types.
struct PostgresType {
  const char* name;
  SQLSMALLINT sqlType;
};

constexpr PostgresType kPostgresTypes[]{
    {"int2", SQL_SMALLINT},
    {"int4", SQL_INTEGER},
    {"int8", SQL_BIGINT},
    {"float4", SQL_REAL},
    {"float8", SQL_DOUBLE},
    {"numeric", SQL_NUMERIC},
    {"date", SQL_TYPE_DATE},
    {"time", SQL_TYPE_TIME},
    {"timetz", SQL_TYPE_TIME},
    {"oid", SQL_INTEGER},
    {"timestamp", SQL_TYPE_TIMESTAMP},
    {"timestamptz", SQL_TYPE_TIMESTAMP},
};

ColumnInfo PostgresColumn(const QByteArray& typeName, qint64 size) {
  SQLSMALLINT sqlType = SQL_VARCHAR;
  for (const PostgresType& known : kPostgresTypes)
    if (typeName == known.name) sqlType = known.sqlType;
  return DescribeOdbcType(DialectKind::PostgreSql, sqlType, typeName, size).info;
}

QString Text(const RowStore& rows, std::size_t row, int column) { return rows.At(row, column).ToVariant().toString(); }
qint64 Number(const RowStore& rows, std::size_t row, int column) {
  return rows.At(row, column).ToVariant().toLongLong();
}

SQLCHAR* AsSql(QByteArray& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }

// A name as a pattern of the catalogue functions that means itself.
QByteArray AsPattern(SQLHDBC connection, const QString& name) {
  char escape[8]{};
  SQLGetInfo(connection, SQL_SEARCH_PATTERN_ESCAPE, escape, sizeof escape, nullptr);
  QString pattern;
  for (const QChar character : name) {
    if (character == u'_' || character == u'%') pattern += QLatin1String(escape);
    pattern += character;
  }
  return pattern.toUtf8();
}

void ReadCatalogue(OdbcStatement& statement, RowStore& rows) {
  ReadRows(statement, DescribeResult(DialectKind::TransactSql, statement), rows);
}

// The result columns of SQLTables, SQLColumns, SQLPrimaryKeys and SQLStatistics, counted from 0 (ODBC 3 reference).
enum CatalogueColumn {
  kSchemaName = 1,
  kTableName = 2,
  kColumnName = 3,
  kDataType = 4,
  kTypeName = 5,
  kColumnSize = 6,
  kNullable = 10,
  kStatisticsIndexName = 5,
  kStatisticsColumnName = 8
};

struct TableName {
  QString schema, table;
};

// The table as the server spells it. A server that compares names by their case is asked for every name.
std::optional<TableName> FindTable(SQLHDBC connection, const QString& table) {
  OdbcStatement statement(connection);
  statement.Check(SQLTables(statement.Handle(), nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0));
  RowStore rows;
  ReadCatalogue(statement, rows);
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    if (Text(rows, row, kTableName).compare(table, Qt::CaseInsensitive) == 0)
      return TableName{Text(rows, row, kSchemaName), Text(rows, row, kTableName)};
  return std::nullopt;
}

void ReadColumns(SQLHDBC connection, const TableName& name, TableInfo& info) {
  QByteArray schema = AsPattern(connection, name.schema), table = AsPattern(connection, name.table);
  OdbcStatement statement(connection);
  statement.Check(
      SQLColumns(statement.Handle(), nullptr, 0, AsSql(schema), SQL_NTS, AsSql(table), SQL_NTS, nullptr, 0));
  RowStore rows;
  ReadCatalogue(statement, rows);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const QByteArray type = Text(rows, row, kTypeName).toUtf8();
    ColumnInfo column = DescribeOdbcType(DialectKind::TransactSql, SQLSMALLINT(Number(rows, row, kDataType)), type,
                                         Number(rows, row, kColumnSize))
                            .info;
    column.name = Text(rows, row, kColumnName);
    column.nullable = Number(rows, row, kNullable) != SQL_NO_NULLS;
    column.autoNumber = type.contains("identity");
    info.columns.push_back(column);
  }
}

void ReadPrimaryKey(SQLHDBC connection, const TableName& name, TableInfo& info) {
  QByteArray schema = name.schema.toUtf8(), table = name.table.toUtf8();
  OdbcStatement statement(connection);
  statement.Check(SQLPrimaryKeys(statement.Handle(), nullptr, 0, AsSql(schema), SQL_NTS, AsSql(table), SQL_NTS));
  RowStore rows;
  ReadCatalogue(statement, rows);
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    info.key.push_back(info.IndexOf(Text(rows, row, kColumnName)));
}

bool IdentifiesRows(const std::vector<int>& key, const TableInfo& info) {
  for (const int column : key)
    if (column < 0 || info.columns[size_t(column)].nullable) return false;
  return !key.empty();
}

void ReadUniqueIndex(SQLHDBC connection, const TableName& name, TableInfo& info) {
  QByteArray schema = name.schema.toUtf8(), table = name.table.toUtf8();
  OdbcStatement statement(connection);
  statement.Check(SQLStatistics(statement.Handle(), nullptr, 0, AsSql(schema), SQL_NTS, AsSql(table), SQL_NTS,
                                SQL_INDEX_UNIQUE, SQL_QUICK));
  RowStore rows;
  ReadCatalogue(statement, rows);
  std::vector<int> key;
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    const QString index = Text(rows, row, kStatisticsIndexName);
    if (index.isEmpty()) continue;  // figures about the table itself
    key.push_back(info.IndexOf(Text(rows, row, kStatisticsColumnName)));
    const bool last = row + 1 == rows.RowCount() || Text(rows, row + 1, kStatisticsIndexName) != index;
    if (!last) continue;
    if (IdentifiesRows(key, info) && (info.key.empty() || key.size() < info.key.size())) info.key = key;
    key.clear();
  }
}

}  // namespace

std::optional<TableInfo> DescribePostgresTable(Driver& driver, const QString& table) {
  RowStore rows, keyRows;
  std::vector<ColumnInfo> described;
  driver.Query({kPostgresColumns, {table, table}}, described, rows);
  if (rows.RowCount() == 0) return std::nullopt;
  TableInfo info;
  info.name = Text(rows, 0, 0);
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    ColumnInfo column = PostgresColumn(Text(rows, row, 2).toUtf8(), Number(rows, row, 3));
    column.name = Text(rows, row, 1);
    column.nullable = Number(rows, row, 4) == 0;
    column.autoNumber = Number(rows, row, 5) == 1;
    column.hasDefault = Number(rows, row, 6) == 1;
    info.columns.push_back(column);
  }
  driver.Query({kPostgresKey, {info.name}}, described, keyRows);
  for (std::size_t row = 0; row < keyRows.RowCount(); ++row) info.key.push_back(info.IndexOf(Text(keyRows, row, 0)));
  return info;
}

QByteArray FindPostgresPinyin(Driver& driver) {
  RowStore rows;
  std::vector<ColumnInfo> described;
  driver.Query({kPostgresPinyin, {}}, described, rows);
  return rows.RowCount() ? Text(rows, 0, 0).toUtf8() : QByteArray();
}

std::optional<TableInfo> DescribeOdbcTable(SQLHDBC connection, const QString& table) {
  const std::optional<TableName> name = FindTable(connection, table);
  if (!name) return std::nullopt;
  TableInfo info;
  info.name = name->table;
  ReadColumns(connection, *name, info);
  ReadPrimaryKey(connection, *name, info);
  if (info.key.empty()) ReadUniqueIndex(connection, *name, info);
  return info;
}

}  // namespace folvane
