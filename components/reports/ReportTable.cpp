#include "components/reports/ReportTable.h"

#include <QRegularExpression>

#include <folvane/DataError.h>

#include "components/common/Quoted.h"
#include "components/reports/FlowTables.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;
using components::Quoted;

ResultSet ReadRows(Connection& connection, const QString& table, const QString& conditions, const QString& order) {
  static const QRegularExpression name(u"^\\w+$"_s, QRegularExpression::UseUnicodePropertiesOption);
  if (!name.match(table).hasMatch()) throw DataError(DataErrorKind::Usage, u"“%1”不是表的名称。"_s.arg(table));
  const QString where = conditions.isEmpty() ? QString() : u" Where "_s + conditions;
  const QString by = order.isEmpty() ? QString() : u" Order By "_s + order;
  const QString statement = u"Select * From "_s + table + where + by;
  try {
    return {connection, statement};
  } catch (const DataError& error) {
    throw DataError(error.Kind(), u"报表无法读取表“%1”的数据：%2"_s.arg(table, error.Message()), error.Statement(),
                    error.NativeCode());
  }
}

QString MarkerOf(const QString& column, int number) {
  static const QRegularExpression plain(u"^[A-Za-z0-9_]+$"_s);
  return plain.match(column).hasMatch() ? column.toUpper() : u"COLUMN_%1"_s.arg(number);
}

bool IsNumber(const QString& fieldType) {
  return fieldType == u"数值型"_s || fieldType == u"数字型"_s || fieldType == u"自动编号"_s;
}

}  // namespace

ReportTable::ReportTable(Connection& connection, const QString& table, const QString& conditions, const QString& order)
    : name_(table), caption_(table), rows_(ReadRows(connection, table, conditions, order)) {
  NameFields();
  Describe(connection);
}

void ReportTable::NameFields() {
  for (int column = 0; column < rows_.ColumnCount(); ++column) {
    ReportField field;
    field.marker = MarkerOf(rows_.ColumnName(column), column + 1);
    field.caption = FlowFieldCaption(name_, rows_.ColumnName(column));
    field.isNumber = FlowTableCaption(name_).size() > 0 && field.marker.endsWith(u"QUANTITY"_s);
    field.column = column;
    fields_.push_back(field);
  }
  if (const QString caption = FlowTableCaption(name_); !caption.isEmpty()) caption_ = caption;
}

void ReportTable::Describe(Connection& connection) {
  const auto fieldOf = [this](const QString& column) -> ReportField* {
    const int at = rows_.Find(column);
    return at < 0 ? nullptr : &fields_[size_t(at)];
  };
  const QString of = u" Where TableName = "_s + Quoted(name_);
  const ResultSet dictionary(
      connection, u"Select FieldName,ChnFieldName,FieldType,FieldLong,ChnTableName From DynamicWindows"_s + of);
  for (qint64 row = 0; row < dictionary.RowCount(); ++row) {
    if (!dictionary.Text(row, 4).isEmpty()) caption_ = dictionary.Text(row, 4);
    ReportField* field = fieldOf(dictionary.Text(row, 0));
    if (!field) continue;
    field->caption = dictionary.Text(row, 1);
    field->isNumber = IsNumber(dictionary.Text(row, 2));
    field->length = dictionary.Text(row, 3).toInt();
  }
  const ResultSet list(
      connection, u"Select FieldName,ChnFieldName,ColumnWidth From ListViewFormat"_s + of + u" Order By OrderNo"_s);
  for (qint64 row = 0; row < list.RowCount(); ++row) {
    ReportField* field = fieldOf(list.Text(row, 0));
    if (!field || list.Text(row, 2).toInt() <= 0) continue;
    field->listWidth = list.Text(row, 2).toInt();
    if (field->caption.isEmpty()) field->caption = list.Text(row, 1);
    listed_.push_back(field->marker);
  }
}

std::vector<ReportField> ReportTable::CaptionedFields() const {
  std::vector<ReportField> fields = ListFields();
  for (const ReportField& field : fields_)
    if (!field.caption.isEmpty() && field.listWidth == 0) fields.push_back(field);
  return fields;
}

std::vector<ReportField> ReportTable::ListFields() const {
  std::vector<ReportField> fields;
  for (const QString& marker : listed_) fields.push_back(*Find(marker));
  return fields;
}

const ReportField* ReportTable::Find(const QString& marker) const {
  for (const ReportField& field : fields_)
    if (field.marker == marker) return &field;
  return nullptr;
}

QString ReportTable::Text(qint64 row, const QString& marker) const {
  const ReportField* field = Find(marker);
  return field ? Text(row, *field) : QString();
}

QString ReportTable::Sum(const std::vector<qint64>& rows, const ReportField& field) const {
  double sum = 0;
  for (const qint64 row : rows) sum += Text(row, field).toDouble();
  return QString::number(sum, 'g', 15);
}

}  // namespace folvane::reports
