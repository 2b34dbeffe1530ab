#include "catalogue/FieldRows.h"

namespace folvane {

const RowColumns<DictionaryFieldRow>& DictionaryFieldRow::Columns() {
  static const RowColumns<DictionaryFieldRow> columns{
      {"TableName", 50, &DictionaryFieldRow::tableName},
      {"ChnTableName", 100, &DictionaryFieldRow::chnTableName},
      {"ClassName", 100, &DictionaryFieldRow::className},
      {"TableType", 10, &DictionaryFieldRow::tableType},
      {"FieldName", 50, &DictionaryFieldRow::fieldName},
      {"ChnFieldName", 100, &DictionaryFieldRow::chnFieldName},
      {"FieldType", 20, &DictionaryFieldRow::fieldType},
      {"FieldLong", &DictionaryFieldRow::fieldLong},
      {"NullFlags", 10, &DictionaryFieldRow::nullFlags},
      {"ControlIndex", 10, &DictionaryFieldRow::controlIndex},
      {"AuxiDictDetails", 100, &DictionaryFieldRow::auxiDictDetails},
      {"ControlsType", &DictionaryFieldRow::controlsType},
      {"ZJCFlags", 10, &DictionaryFieldRow::zjcFlags},
  };
  return columns;
}

Table DictionaryFieldRow::Description() {
  return TableOf("DynamicWindows", Columns(), {}, {{"TableName"}, {"FieldName", "TableName"}});
}

const RowColumns<EntryControlRow>& EntryControlRow::Columns() {
  static const RowColumns<EntryControlRow> columns{
      {"DataSource", 50, &EntryControlRow::dataSource},
      {"DataField", 50, &EntryControlRow::dataField},
      {"ControlType", &EntryControlRow::controlType},
      {"ControlIndex", &EntryControlRow::controlIndex},
      {"KeyOrder", &EntryControlRow::keyOrder},
      {"F_Left", &EntryControlRow::left},
      {"F_Top", &EntryControlRow::top},
      {"F_Width", &EntryControlRow::width},
      {"F_Height", &EntryControlRow::height},
  };
  return columns;
}

Table EntryControlRow::Description() { return TableOf("SaveControls", Columns(), {}, {{"DataSource"}}); }

const RowColumns<ListColumnFormatRow>& ListColumnFormatRow::Columns() {
  static const RowColumns<ListColumnFormatRow> columns{
      {"TableName", 50, &ListColumnFormatRow::tableName},
      {"FieldName", 50, &ListColumnFormatRow::fieldName},
      {"ChnFieldName", 100, &ListColumnFormatRow::chnFieldName},
      {"ColumnWidth", &ListColumnFormatRow::columnWidth},
      {"OrderNo", &ListColumnFormatRow::orderNo},
  };
  return columns;
}

Table ListColumnFormatRow::Description() { return TableOf("ListViewFormat", Columns(), {"TableName", "FieldName"}); }

const RowColumns<SearchFieldRow>& SearchFieldRow::Columns() {
  static const RowColumns<SearchFieldRow> columns{
      {"TableName", 50, &SearchFieldRow::tableName},
      {"DataField", 50, &SearchFieldRow::dataField},
      {"ChnDataField", 100, &SearchFieldRow::chnDataField},
      {"OrderNo", &SearchFieldRow::orderNo},
      {"CtlType", &SearchFieldRow::ctlType},
      {"CtlIndex", &SearchFieldRow::ctlIndex},
      {"FieldValue", 1000, &SearchFieldRow::fieldValue},
  };
  return columns;
}

Table SearchFieldRow::Description() { return TableOf("SimSearch", Columns(), {"TableName", "DataField"}); }

}  // namespace folvane
