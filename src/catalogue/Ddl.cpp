#include "catalogue/Ddl.h"

#include <algorithm>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The words of one database for the column types; %1 is the length.
struct TypeWords {
  QString text, longText, integer, date, blob;

  QString Of(const Column& column) const {
    switch (column.type) {
      case ColumnType::Text:
        return text.arg(column.length);
      case ColumnType::LongText:
        return longText;
      case ColumnType::Integer:
        return integer;
      case ColumnType::Date:
        return date;
      case ColumnType::Blob:
        return blob;
    }
    return {};
  }
};

// SQLite would turn '20020304' in a column declared as a date into a number; as text it stays what was written.
TypeWords WordsOf(DialectKind dialect) {
  const QString text = u"varchar(%1)"_s;
  const QString longText = u"text"_s;
  const QString integer = u"integer"_s;
  if (dialect == DialectKind::Sqlite) return {text, longText, integer, u"varchar(10)"_s, u"blob"_s};
  if (dialect == DialectKind::PostgreSql) return {text, longText, integer, u"date"_s, u"bytea"_s};
  throw DataError(DataErrorKind::Untranslatable, u"该数据库中的表由其管理工具建立，不能在此建立"_s);
}

QString CreateTableText(const TypeWords& words, const Table& table) {
  QStringList parts;
  for (const Column& column : table.columns) {
    const bool inKey = table.key.contains(column.name, Qt::CaseInsensitive);
    parts << column.name + u' ' + words.Of(column) + (inKey ? u" NOT NULL"_s : QString());
  }
  if (!table.key.isEmpty()) parts << u"PRIMARY KEY (%1)"_s.arg(table.key.join(u','));
  return u"CREATE TABLE %1 (%2)"_s.arg(table.name, parts.join(u", "_s));
}

QString CreateIndexText(const QString& table, const QStringList& columns) {
  return u"CREATE INDEX IX_%1_%2 ON %1 (%3)"_s.arg(table, columns.join(u'_'), columns.join(u','));
}

/// What the database lacks of a table: some of its columns, or all of it.
struct Gap {
  const Table* table;
  std::vector<Column> columns;

  bool IsWhole() const { return columns.size() == table->columns.size(); }
};

// Not by the description's own search: that one stays in the library, and the maker of the demo database takes this
// folder alone.
bool Has(const TableInfo& table, const QString& name) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [&](const ColumnInfo& column) { return column.name.compare(name, Qt::CaseInsensitive) == 0; });
}

std::vector<Gap> Gaps(Connection& connection) {
  connection.RefreshSchema();
  std::vector<Gap> gaps;
  for (const Table& table : CatalogueTables()) {
    const TableInfo* present = connection.Table(table.name);
    Gap gap{&table, {}};
    for (const Column& column : table.columns)
      if (!present || !Has(*present, column.name)) gap.columns.push_back(column);
    if (!gap.columns.empty()) gaps.push_back(gap);
  }
  return gaps;
}

// Without NOT NULL: the rows that are there have no value for it.
void AddColumn(Connection& connection, const Table& table, const Column& column) {
  Driver& driver = connection.NativeDriver();
  const QString type = WordsOf(driver.Dialect()).Of(column);
  driver.Execute({u"ALTER TABLE %1 ADD COLUMN %2 %3"_s.arg(table.name, column.name, type).toUtf8(), {}});
}

void FillGaps(Connection& connection) {
  for (const Gap& gap : Gaps(connection)) {
    if (gap.IsWhole())
      CreateTable(connection, *gap.table);
    else
      for (const Column& column : gap.columns) AddColumn(connection, *gap.table, column);
  }
  connection.RefreshSchema();
}

}  // namespace

QByteArrayList CreateStatements(DialectKind dialect, const Table& table) {
  QByteArrayList statements{CreateTableText(WordsOf(dialect), table).toUtf8()};
  for (const QStringList& columns : table.indexes) statements << CreateIndexText(table.name, columns).toUtf8();
  return statements;
}

void CreateTable(Connection& connection, const Table& table) {
  Driver& driver = connection.NativeDriver();
  for (const QByteArray& statement : CreateStatements(driver.Dialect(), table)) driver.Execute({statement, {}});
  connection.RefreshSchema();
}

void CreateIndexes(Connection& connection, const Table& table) {
  for (const QStringList& columns : table.indexes)
    connection.NativeDriver().Execute({CreateIndexText(table.name, columns).toUtf8(), {}});
}

void DropTable(Connection& connection, const QString& name) {
  connection.NativeDriver().Execute({"DROP TABLE IF EXISTS " + name.toUtf8(), {}});
  connection.RefreshSchema();
}

void CreateCatalogue(Connection& connection) {
  for (const Table& table : CatalogueTables()) CreateTable(connection, table);
}

void CreateTables(Connection& connection) {
  if (connection.InTransaction()) return FillGaps(connection);
  Transaction transaction(connection);
  FillGaps(connection);
  transaction.Commit();
}

QStringList CheckTables(Connection& connection) {
  QStringList tables, sentences;
  for (const Gap& gap : Gaps(connection)) {
    QStringList columns;
    for (const Column& column : gap.columns) columns << column.name;
    if (gap.IsWhole())
      tables << gap.table->name;
    else
      sentences << u"表 %1 缺少列 %2。"_s.arg(gap.table->name, columns.join(u'、'));
  }
  if (!tables.isEmpty()) sentences.prepend(u"缺少表 %1。"_s.arg(tables.join(u'、')));
  return sentences;
}

}  // namespace folvane
