#include "design/RowChanges.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

// What clerks have searched for is theirs.
const QString kClerksColumn = u"FieldValue"_s;

template <class Row>
RowSet SetOf(const std::vector<Row>& rows, const QString& word, const QStringList& key, bool isInOrder = false) {
  RowSet set{Row::Description().name, word, {}, key, isInOrder};
  for (const RowColumn<Row>& column : Row::Columns())
    if (column.column.name != kClerksColumn) set.columns << column.column.name;
  for (const Row& row : rows) {
    QVariantList& values = set.rows.emplace_back();
    for (const RowColumn<Row>& column : Row::Columns()) {
      if (column.column.name == kClerksColumn) continue;
      if (const auto* text = std::get_if<QString Row::*>(&column.member))
        values << row.**text;
      else
        values << row.*std::get<int Row::*>(column.member);
    }
  }
  return set;
}

}  // namespace

QString RowSet::KeyOf(const QVariantList& row) const {
  QStringList values;
  for (const QString& column : key) values << Folded(At(row, column).toString());
  return values.join(u'\n');
}

QString RowSet::TitleOf(const QVariantList& row) const {
  QStringList values;
  for (const QString& column : key)
    if (column != u"DicID" && column != u"IniRecId") values << At(row, column).toString();
  if (values.isEmpty() || columns.contains(u"Name"_s)) values = QStringList{At(row, u"Name"_s).toString()};
  return word + u'“' + values.join(u"，"_s) + u'”';
}

std::vector<RowSet> RowSetsOf(const StoredRows& rows) {
  return {
      SetOf(rows.classes, u"类别"_s, {u"ClassId"_s}),
      SetOf(rows.relations, u"表的位置"_s, {u"TableName"_s}),
      SetOf(rows.fields, u"字段"_s, {u"TableName"_s, u"FieldName"_s}),
      SetOf(rows.controls, u"控件"_s, {u"DataSource"_s, u"ControlType"_s, u"ControlIndex"_s}),
      SetOf(rows.columns, u"列表的列"_s, {u"TableName"_s, u"FieldName"_s}),
      SetOf(rows.searchFields, u"查询字段"_s, {u"TableName"_s, u"DataField"_s}),
      SetOf(rows.numberParts, u"档号格式"_s, {u"TableName"_s, u"FieldName"_s}, true),
      SetOf(rows.dictionaries, u"字典"_s, {u"DicID"_s}),
      SetOf(rows.entries, u"词条"_s, {u"DicID"_s, u"Name"_s}),
      SetOf(rows.fonds, u"全宗"_s, {u"FondsNo"_s}),
      SetOf(rows.entityClasses, u"实体分类"_s, {u"FondsNo"_s, u"ClassNo"_s}),
      SetOf(rows.retentions, u"保管期限"_s, {u"Name"_s}),
      SetOf(rows.transfers, u"归档对应"_s, {u"RecId"_s}),
      SetOf(rows.links, u"归档字段对应"_s, {u"IniRecId"_s, u"DesField"_s, u"SourceField"_s}),
      SetOf(rows.reports, u"报表"_s, {u"Report_ID"_s}),
      SetOf(rows.users, u"用户"_s, {u"UserID"_s}),
      SetOf(rows.rights, u"权限"_s, {u"UserID"_s, u"PopTableName"_s}),
      SetOf(rows.rightsFields, u"权限条件的字段"_s, {u"UserId"_s, u"PopTableName"_s, u"FieldName"_s}),
  };
}

}  // namespace folvane::design
