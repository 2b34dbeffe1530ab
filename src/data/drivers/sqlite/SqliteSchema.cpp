#include "data/drivers/sqlite/SqliteSchema.h"

#include <array>

#include "data/drivers/sqlite/SqliteStatement.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

struct DeclaredType {
  const char* word;
  int type;
  int size;  // 0: the number in brackets
};

constexpr int kAnyLength = 2147483647;

// In the order of the tests: the first word that the declaration starts with decides.
constexpr std::array kDeclaredTypes{
    DeclaredType{"nvarchar", AdoType::VarWChar, 0},
    DeclaredType{"varchar", AdoType::VarChar, 0},
    DeclaredType{"character varying", AdoType::VarChar, 0},
    DeclaredType{"nchar", AdoType::WChar, 0},
    DeclaredType{"char", AdoType::Char, 0},
    DeclaredType{"ntext", AdoType::LongVarWChar, kAnyLength},
    DeclaredType{"text", AdoType::LongVarChar, kAnyLength},
    DeclaredType{"clob", AdoType::LongVarChar, kAnyLength},
    DeclaredType{"bigint", AdoType::BigInt, 8},
    DeclaredType{"smallint", AdoType::SmallInt, 2},
    DeclaredType{"tinyint", AdoType::UnsignedTinyInt, 1},
    DeclaredType{"int", AdoType::Integer, 4},
    DeclaredType{"bit", AdoType::Boolean, 2},
    DeclaredType{"bool", AdoType::Boolean, 2},
    DeclaredType{"real", AdoType::Single, 4},
    DeclaredType{"double", AdoType::Double, 8},
    DeclaredType{"float", AdoType::Double, 8},
    DeclaredType{"money", AdoType::Currency, 8},
    DeclaredType{"numeric", AdoType::Numeric, 19},
    DeclaredType{"decimal", AdoType::Numeric, 19},
    DeclaredType{"datetime", AdoType::DbTimeStamp, 16},
    DeclaredType{"smalldatetime", AdoType::DbTimeStamp, 16},
    DeclaredType{"timestamp", AdoType::DbTimeStamp, 16},
    DeclaredType{"date", AdoType::DbDate, 6},
    DeclaredType{"time", AdoType::DbTime, 6},
    DeclaredType{"image", AdoType::LongVarBinary, kAnyLength},
    DeclaredType{"blob", AdoType::LongVarBinary, kAnyLength},
    DeclaredType{"varbinary", AdoType::VarBinary, 0},
    DeclaredType{"binary", AdoType::Binary, 0},
};

int SizeInBrackets(const QString& declared) {
  const qsizetype open = declared.indexOf(u'(');
  if (open < 0) return 0;
  qsizetype end = open + 1;
  while (end < declared.size() && declared[end].isDigit()) ++end;
  return declared.mid(open + 1, end - open - 1).toInt();
}

void MarkKey(sqlite3* database, TableInfo& info) {
  SqliteStatement statement(database, "SELECT name, pk FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk");
  statement.Bind({info.name});
  while (statement.Step()) info.key.push_back(info.IndexOf(statement.Text(0)));
  if (!info.key.empty()) return;
  // Without a primary key the narrowest unique index over plain columns identifies a row.
  SqliteStatement indexes(database,
                          "SELECT name FROM pragma_index_list(?) WHERE \"unique\" = 1 AND partial = 0 ORDER BY "
                          "(SELECT count(*) FROM pragma_index_info(pragma_index_list.name)), name");
  indexes.Bind({info.name});
  if (!indexes.Step()) return;
  SqliteStatement columns(database, "SELECT name FROM pragma_index_info(?) ORDER BY seqno");
  columns.Bind({indexes.Text(0)});
  while (columns.Step()) {
    const int column = columns.IsNull(0) ? -1 : info.IndexOf(columns.Text(0));
    if (column < 0 || info.columns[size_t(column)].nullable) {
      info.key.clear();
      return;
    }
    info.key.push_back(column);
  }
}

}  // namespace

void ReadDeclaredType(const QString& declared, ColumnInfo& column) {
  for (const DeclaredType& known : kDeclaredTypes) {
    if (!declared.startsWith(QLatin1String(known.word), Qt::CaseInsensitive)) continue;
    column.type = known.type;
    column.definedSize = known.size ? known.size : SizeInBrackets(declared);
    if (column.definedSize == 0) column.definedSize = kAnyLength;
    return;
  }
  column.type = AdoType::LongVarChar;
  column.definedSize = kAnyLength;
}

std::optional<TableInfo> DescribeSqliteTable(sqlite3* database, const QString& table) {
  SqliteStatement find(
      database,
      "SELECT name FROM sqlite_temp_schema WHERE type IN ('table','view') AND name = ?1 COLLATE NOCASE "
      "UNION ALL "
      "SELECT name FROM sqlite_schema WHERE type IN ('table','view') AND name = ?1 COLLATE NOCASE");
  find.Bind({table});
  if (!find.Step()) return std::nullopt;
  TableInfo info;
  info.name = find.Text(0);

  SqliteStatement columns(database,
                          "SELECT name, type, \"notnull\", pk, dflt_value FROM pragma_table_info(?) ORDER BY cid");
  columns.Bind({info.name});
  int keyColumns = 0;
  while (columns.Step()) {
    ColumnInfo column;
    column.name = columns.Text(0);
    ReadDeclaredType(columns.Text(1), column);
    const bool inKey = columns.Integer(3) > 0;
    keyColumns += inKey;
    column.nullable = columns.Integer(2) == 0 && !inKey;
    column.hasDefault = !columns.IsNull(4);
    // An "integer primary key" is the row number, which the database counts by itself.
    column.autoNumber = inKey && columns.Text(1).compare("integer"_L1, Qt::CaseInsensitive) == 0;
    info.columns.push_back(column);
  }
  if (keyColumns > 1)
    for (ColumnInfo& column : info.columns) column.autoNumber = false;
  MarkKey(database, info);
  return info;
}

}  // namespace folvane
