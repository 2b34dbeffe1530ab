#include "catalogue/Ddl.h"

#include <algorithm>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString CreateTableText(const NativeWords& words, const Table& table) {
  QStringList parts;
  for (const Column& column : table.columns) {
    const bool inKey = table.key.contains(column.name, Qt::CaseInsensitive);
    parts << column.name + u' ' + TypeOf(column, words) + (inKey ? u" NOT NULL"_s : QString());
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
  DatabaseSession::Of(connection).RefreshSchema();
  std::vector<Gap> gaps;
  for (const Table& table : CatalogueTables()) {
    const TableInfo* present = DatabaseSession::Of(connection).Table(table.name);
    Gap gap{&table, {}};
    for (const Column& column : table.columns)
      if (!present || !Has(*present, column.name)) gap.columns.push_back(column);
    if (!gap.columns.empty()) gaps.push_back(gap);
  }
  return gaps;
}

void RunNative(Connection& connection, const QString& statement) {
  DatabaseSession::Of(connection).ExecuteNative({statement.toUtf8(), {}});
}

// Without NOT NULL: the rows that are there have no value for it.
void AddColumn(Connection& connection, const Table& table, const Column& column) {
  const QString type = TypeOf(column, DatabaseSession::Of(connection).Words());
  RunNative(connection, u"ALTER TABLE %1 ADD COLUMN %2 %3"_s.arg(table.name, column.name, type));
}

void FillGaps(Connection& connection) {
  for (const Gap& gap : Gaps(connection)) {
    if (gap.IsWhole())
      CreateTable(connection, *gap.table);
    else
      for (const Column& column : gap.columns) AddColumn(connection, *gap.table, column);
  }
  DatabaseSession::Of(connection).RefreshSchema();
}

}  // namespace

QString TypeOf(const Column& column, const NativeWords& words) {
  if (!words.text) throw DataError(DataErrorKind::Untranslatable, u"该数据库中的表由其管理工具建立，不能在此建立"_s);
  const auto word = [](const char* type) { return QString::fromLatin1(type); };
  switch (column.type) {
    case ColumnType::Text:
      return word(words.text).arg(column.length);
    case ColumnType::LongText:
      return word(words.longText);
    case ColumnType::Integer:
      return word(words.integer);
    case ColumnType::Date:
      return word(words.date);
    case ColumnType::Blob:
      return word(words.blob);
  }
  return {};
}

QStringList CreateStatements(const NativeWords& words, const Table& table) {
  QStringList statements{CreateTableText(words, table)};
  for (const QStringList& columns : table.indexes) statements << CreateIndexText(table.name, columns);
  return statements;
}

void CreateTable(Connection& connection, const Table& table) {
  for (const QString& statement : CreateStatements(DatabaseSession::Of(connection).Words(), table))
    RunNative(connection, statement);
  DatabaseSession::Of(connection).RefreshSchema();
}

void CreateIndexes(Connection& connection, const Table& table) {
  for (const QStringList& columns : table.indexes) RunNative(connection, CreateIndexText(table.name, columns));
}

bool HasTable(Connection& connection, const QString& name) {
  DatabaseSession::Of(connection).RefreshSchema();
  return DatabaseSession::Of(connection).Table(name) != nullptr;
}

void DropTable(Connection& connection, const QString& name) {
  RunNative(connection, u"DROP TABLE IF EXISTS "_s + name);
  DatabaseSession::Of(connection).RefreshSchema();
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
