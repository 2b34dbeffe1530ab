#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"
#include "data/RefusedValues.h"
#include "design/Names.h"
#include "design/RowChanges.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Literal(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      return u"Null"_s;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
      return value.toString();
    default:
      return TextLiteral(value.toString());
  }
}

// A column that was never filled reads as an empty text or as 0.
QString Equals(const QString& column, const QVariant& value) {
  const bool isEmpty = value.typeId() == QMetaType::QString ? value.toString().isEmpty() : value.toInt() == 0;
  const QString equals = column + u" = "_s + Literal(value);
  return isEmpty ? u"(%1 Or %2 Is Null)"_s.arg(equals, column) : equals;
}

QString KeyCondition(const RowSet& set, const QVariantList& row) {
  QStringList conditions;
  for (const QString& column : set.key) conditions << Equals(column, set.At(row, column));
  return conditions.join(u" And "_s);
}

QString InsertText(const QString& table, const QStringList& columns, const QVariantList& row) {
  QStringList values;
  for (const QVariant& value : row) values << Literal(value);
  return u"Insert Into %1 (%2) Values (%3)"_s.arg(table, columns.join(u','), values.join(u','));
}

QString UpdateText(const RowChange& change) {
  QStringList settings;
  for (qsizetype at = 0; at < change.after.size(); ++at)
    if (change.after[at] != change.before[at])
      settings << change.set->columns[at] + u" = "_s + Literal(change.after[at]);
  return u"Update %1 Set %2 Where %3"_s.arg(change.set->table, settings.join(u", "_s),
                                            KeyCondition(*change.set, change.before));
}

/// Columns of a design table that only the host knows, with their values by the last column of the key.
struct HostColumns {
  QStringList columns;
  QHash<QString, QVariantList> values;
};

HostColumns ReadHostColumns(Connection& connection, const RowSet& set, const QString& group) {
  HostColumns found;
  const TableInfo* info = DatabaseSession::Of(connection).Table(set.table);
  if (!info) return found;
  for (const ColumnInfo& column : info->columns)
    if (!set.columns.contains(column.name, Qt::CaseInsensitive)) found.columns << column.name;
  if (found.columns.isEmpty()) return found;
  const ResultSet rows(
      connection, u"Select %1,%2 From %3 Where %4"_s.arg(set.key.last(), found.columns.join(u','), set.table, group));
  for (qint64 row = 0; row < rows.RowCount(); ++row) {
    QVariantList values;
    for (int column = 1; column < rows.ColumnCount(); ++column) values << rows.Value(row, column);
    found.values.insert(Folded(rows.Text(row, 0)), values);
  }
  return found;
}

QStringList RewriteTexts(Connection& connection, const RowChange& change) {
  const RowSet& set = *change.set;
  const QString group = Equals(set.key.first(), set.At(change.before, set.key.first()));
  const HostColumns host = ReadHostColumns(connection, set, group);
  QStringList statements{u"Delete From %1 Where %2"_s.arg(set.table, group)};
  for (const QVariantList& row : change.group) {
    const QVariantList kept = host.values.value(Folded(set.At(row, set.key.last()).toString()));
    statements << InsertText(set.table, kept.isEmpty() ? set.columns : set.columns + host.columns, row + kept);
  }
  return statements;
}

QStringList TextsOf(Connection& connection, const RowChange& change) {
  const RowSet& set = *change.set;
  switch (change.kind) {
    case RowChange::Kind::Insert:
      return {InsertText(set.table, set.columns, change.after)};
    case RowChange::Kind::Update:
      return {UpdateText(change)};
    case RowChange::Kind::Delete:
      return {u"Delete From %1 Where %2"_s.arg(set.table, KeyCondition(set, change.before))};
    case RowChange::Kind::Rewrite:
      break;
  }
  return RewriteTexts(connection, change);
}

// As the database has the column, or as it will be made.
ColumnInfo ColumnOf(Connection& connection, const QString& table, const QString& column) {
  if (const TableInfo* info = DatabaseSession::Of(connection).Table(table))
    if (const int at = info->IndexOf(column); at >= 0) return info->columns[std::size_t(at)];
  const Column* described = FindCatalogueTable(table)->Find(column);
  const bool isText = described->type == ColumnType::Text;
  return {column, isText ? AdoType::VarChar : AdoType::Integer, described->length};
}

void RequireFitting(Connection& connection, const RowSet& set, const QVariantList& row) {
  for (qsizetype at = 0; at < row.size(); ++at) {
    if (row[at].typeId() != QMetaType::QString) continue;
    const QString text = row[at].toString();
    // Nobody sees a byte order mark at the beginning of a text, and a file of designs does not keep it.
    if (text.contains(QChar::Null) || text.startsWith(QChar::ByteOrderMark) || !text.isValidUtf16())
      throw DataError(DataErrorKind::Usage, u"%1的 %2 中有不能存储的字符。"_s.arg(set.TitleOf(row), set.columns[at]));
    const ColumnInfo column = ColumnOf(connection, set.table, set.columns[at]);
    if (GroupOfType(column.type) == TypeGroup::Text && !FitsColumn(text, column))
      throw DataError(DataErrorKind::TooLong, u"%1太长：%2 最多 %3 字节（一个汉字占 2 字节）。"_s
                                                  .arg(set.TitleOf(row).left(100), set.columns[at])
                                                  .arg(column.definedSize));
  }
}

}  // namespace

void RequireFitting(Connection& connection, const std::vector<RowChange>& changes) {
  for (const RowChange& change : changes) {
    RequireFitting(connection, *change.set, change.after);
    for (const QVariantList& row : change.group) RequireFitting(connection, *change.set, row);
  }
}

QStringList StatementsOf(Connection& connection, const std::vector<RowChange>& changes) {
  QStringList statements;
  for (const RowChange& change : changes) statements << TextsOf(connection, change);
  return statements;
}

}  // namespace folvane::design
