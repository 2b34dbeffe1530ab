#include "query/SearchFields.h"

#include <QMap>
#include <QSet>
#include <algorithm>

#include "catalogue/ReadRows.h"
#include "data/OneTransaction.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class Row>
std::vector<Row> RowsOf(const QString& statement) {
  return ReadRows<Row>(SharedConnection(), statement);
}

// The indexes that fit stay where they are, whatever comes before them.
void MendIndexes(std::vector<SearchFieldRow>& fields) {
  QMap<int, QSet<int>> taken;
  std::vector<SearchFieldRow*> unfit;
  for (SearchFieldRow& field : fields) {
    QSet<int>& ofKind = taken[field.ctlType];
    if (field.ctlIndex < 1 || ofKind.contains(field.ctlIndex)) {
      unfit.push_back(&field);
    } else {
      ofKind.insert(field.ctlIndex);
    }
  }
  for (SearchFieldRow* field : unfit) {
    QSet<int>& ofKind = taken[field->ctlType];
    field->ctlIndex = 1;
    while (ofKind.contains(field->ctlIndex)) ++field->ctlIndex;
    ofKind.insert(field->ctlIndex);
  }
}

// What the search bar offers again, by field.
QMap<QString, QString> ReadSearchedValues(const QString& table) {
  QMap<QString, QString> values;
  for (const auto& row :
       RowsOf<SearchFieldRow>(u"Select DataField,FieldValue From SimSearch Where TableName = '"_s + table + u"'"_s))
    values[row.dataField] = row.fieldValue;
  return values;
}

void AddRow(Recordset& records, const QString& table, const NamedField& field, int order, int kind, int index) {
  records.AddNew();
  records[u"TableName"_s].SetValue(table);
  records[u"DataField"_s].SetValue(field.field);
  records[u"ChnDataField"_s].SetValue(field.caption);
  records[u"OrderNo"_s].SetValue(order);
  records[u"CtlType"_s].SetValue(kind);
  records[u"CtlIndex"_s].SetValue(index);
}

}  // namespace

std::vector<SearchFieldRow> ReadSearchFields(const QString& table) {
  std::vector<SearchFieldRow> fields =
      RowsOf<SearchFieldRow>(u"Select * from SimSearch Where TableName = '"_s + table + u"' Order By OrderNo"_s);
  MendIndexes(fields);
  return fields;
}

std::vector<NamedField> ReadChosenFields(const QString& table) {
  std::vector<NamedField> chosen;
  for (const auto& row : RowsOf<SearchFieldRow>(u"Select DataField,ChnDataField from SimSearch where Tablename='"_s +
                                                table + u"' Order By OrderNo"_s))
    chosen.push_back({row.chnDataField, row.dataField});
  return chosen;
}

std::vector<NamedField> ReadOfferedFields(const QString& table, const std::vector<NamedField>& chosen) {
  const auto isChosen = [&](const QString& caption) {
    return std::any_of(chosen.begin(), chosen.end(), [&](const NamedField& field) { return field.caption == caption; });
  };
  std::vector<NamedField> offered;
  for (const auto& row : RowsOf<DictionaryFieldRow>(
           u"Select ChnFieldname,FieldName From DynamicWindows Where TableName='"_s + table + u"'"_s)) {
    if (!isChosen(row.chnFieldName)) offered.push_back({row.chnFieldName, row.fieldName});
  }
  return offered;
}

void SaveSimSearch(const QString& table, const std::vector<NamedField>& chosen) {
  const std::shared_ptr<Connection> connection = SharedConnection();
  InOneTransaction(*connection, [&] {
    const QMap<QString, QString> searched = ReadSearchedValues(table);
    connection->Execute(u"Delete From SimSearch Where TableName = '"_s + table + u"'"_s);
    Recordset records;
    records.Open(u"Select * from SimSearch"_s, connection);
    QMap<int, int> counts;
    int order = 0;
    for (const NamedField& field : chosen) {
      const int kind = GetCtlType(table, field.field);
      AddRow(records, table, field, ++order, kind, ++counts[kind]);
      if (const QString value = searched.value(field.field); !value.isEmpty()) records[u"FieldValue"_s].SetValue(value);
    }
    records.UpdateBatch(AffectKind::All);
  });
}

int GetCtlType(const QString& table, const QString& field) {
  static const QStringList ranges{u"数值型"_s, u"数字型"_s, u"档案日期"_s, u"自动编号"_s};
  static const QStringList dates{u"时间型"_s, u"日期型"_s};
  const std::vector<DictionaryFieldRow> rows = RowsOf<DictionaryFieldRow>(
      u"Select ChnFieldName,FieldName,AuxiDictDetails,FieldType From DynamicWindows Where FieldName = '"_s + field +
      u"' And TableName = '"_s + table + u"'"_s);
  if (rows.empty()) return SearchInput::Like;
  if (ranges.contains(rows.front().fieldType)) return SearchInput::Range;
  if (dates.contains(rows.front().fieldType)) return SearchInput::Dates;
  return rows.front().auxiDictDetails.isEmpty() ? SearchInput::Like : SearchInput::Dictionary;
}

}  // namespace folvane
