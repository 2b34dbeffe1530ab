#include "components/transfer/DesignRows.h"

#include <QDateTime>

#include <folvane/Connection.h>
#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "components/common/Quoted.h"
#include "design/transfer/Names.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

QString Literal(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      return u"Null"_s;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
      return value.toString();
    case QMetaType::QDate:
      return Quoted(value.toDate().toString(Qt::ISODate));
    case QMetaType::QDateTime:
      return Quoted(value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s));
    case QMetaType::QByteArray:
      throw DataError(DataErrorKind::Usage, u"设计表中有二进制内容的列，不能写入。"_s);
    default:
      return Quoted(value.toString());
  }
}

// What the database holds for one value: letters of either case, blanks at the end or not.
QString GroupKey(const QVariant& value) {
  return value.isValid() ? u'=' + WithoutEndBlanks(value.toString()).toLower() : QString();
}

void RequireCount(qint64 changed, std::size_t expected) {
  if (changed < 0 || changed == qint64(expected)) return;  // below 0: the database does not tell
  throw DataError(DataErrorKind::Conflict, u"其他用户同时修改了归档设置，本次修改没有保存。"_s);
}

}  // namespace

int DesignRows::Find(const QString& column) const {
  for (qsizetype at = 0; at < columns.size(); ++at)
    if (columns[at].compare(column, Qt::CaseInsensitive) == 0) return int(at);
  return -1;
}

QString DesignRows::Text(const QVariantList& row, const QString& column) const {
  return WithoutEndBlanks(Exact(row, column));
}

QString DesignRows::Exact(const QVariantList& row, const QString& column) const {
  return row.value(Find(column)).toString();
}

void DesignRows::Put(QVariantList& row, const QString& column, const QString& text) const {
  if (row.isEmpty() || Text(row, column) != WithoutEndBlanks(text)) PutValue(row, column, text);
}

void DesignRows::PutExact(QVariantList& row, const QString& column, const QString& text) const {
  if (row.isEmpty() || Exact(row, column) != text) PutValue(row, column, text);
}

void DesignRows::PutNumber(QVariantList& row, const QString& column, const QString& digits) const {
  if (!row.isEmpty() && Text(row, column) == digits.trimmed()) return;
  bool isNumber = false;
  const qlonglong number = digits.toLongLong(&isNumber);
  PutValue(row, column, isNumber ? QVariant(number) : digits.trimmed().isEmpty() ? QVariant() : QVariant(digits));
}

void DesignRows::PutValue(QVariantList& row, const QString& column, const QVariant& value) const {
  while (row.size() < columns.size()) row << QVariant();
  if (const int at = Find(column); at >= 0) row[at] = value;
}

DesignRows ReadDesignRows(Connection& connection, const QString& table) {
  const ResultSet result(connection, u"Select * From "_s + table);
  DesignRows rows{table, {}, {}};
  for (int column = 0; column < result.ColumnCount(); ++column) rows.columns << result.ColumnName(column);
  for (qint64 at = 0; at < result.RowCount(); ++at) {
    QVariantList& row = rows.rows.emplace_back();
    for (int column = 0; column < result.ColumnCount(); ++column) row << result.Value(at, column);
  }
  return rows;
}

RowChange::RowChange(const DesignRows& before, const DesignRows& after, const QString& groupColumn)
    : table_(before.table), groupColumn_(groupColumn), columns_(before.columns) {
  const int at = before.Find(groupColumn);
  const auto groupOf = [&](const QVariantList& row) -> Group& {
    Group& group = groups_[GroupKey(row.value(at))];
    group.value = row.value(at);
    return group;
  };
  for (const QVariantList& row : before.rows) groupOf(row).before.push_back(row);
  for (const QVariantList& row : after.rows) groupOf(row).after.push_back(row);
}

QString RowChange::Condition(const Group& group) const {
  return u" Where "_s + groupColumn_ + (group.value.isValid() ? u" = "_s + Literal(group.value) : u" Is Null"_s);
}

bool RowChange::IsEmpty() const {
  return std::none_of(groups_.begin(), groups_.end(), [](const Group& group) { return group.IsChanged(); });
}

void RowChange::Delete(Connection& connection) const {
  for (const Group& group : groups_) {
    if (!group.IsChanged() || group.IsOneRow() || group.before.empty()) continue;
    RequireCount(connection.Execute(u"Delete From "_s + table_ + Condition(group)), group.before.size());
  }
}

void RowChange::Write(Connection& connection) const {
  for (const Group& group : groups_) {
    if (!group.IsChanged()) continue;
    if (group.IsOneRow()) {
      Update(connection, group);
      continue;
    }
    for (const QVariantList& row : group.after) {
      QStringList values;
      for (const QVariant& value : row) values << Literal(value);
      connection.Execute(u"Insert Into %1(%2) Values("_s.arg(table_, columns_.join(u',')) + values.join(u',') + u')');
    }
  }
}

void RowChange::Update(Connection& connection, const Group& group) const {
  QStringList changes;
  for (qsizetype at = 0; at < columns_.size(); ++at)
    if (const QVariant& value = group.after[0][at]; value != group.before[0][at])
      changes << columns_[at] + u" = "_s + Literal(value);
  RequireCount(connection.Execute(u"Update "_s + table_ + u" Set "_s + changes.join(u',') + Condition(group)), 1);
}

}  // namespace folvane::transfer
