#pragma once

#include "catalogue/RowDescription.h"

// The fields of the business tables: the data dictionary, entry form, record list and quick search.
namespace folvane {

/// DynamicWindows: a field of a business table; what is said of the table repeats on each of its rows.
struct DictionaryFieldRow {
  QString tableName, chnTableName, className, tableType, fieldName, chnFieldName, fieldType, nullFlags, controlIndex,
      auxiDictDetails, zjcFlags;
  int fieldLong = 0, controlsType = 0;

  static const RowColumns<DictionaryFieldRow>& Columns();
  static Table Description();
};

/// SaveControls: a control of the entry form. Positions and sizes are in twips, 1440 to the inch.
struct EntryControlRow {
  QString dataSource, dataField;
  int controlType = 0, controlIndex = 0, keyOrder = 0, left = 0, top = 0, width = 0, height = 0;

  static const RowColumns<EntryControlRow>& Columns();
  static Table Description();
};

/// ListViewFormat: a column of the record list. Its width is in twips.
struct ListColumnFormatRow {
  QString tableName, fieldName, chnFieldName;
  int columnWidth = 0, orderNo = 0;

  static const RowColumns<ListColumnFormatRow>& Columns();
  static Table Description();
};

/// SimSearch: a field of the quick search bar and of the simple query, and what was last searched for in it: @a@b@,
/// newest first.
struct SearchFieldRow {
  QString tableName, dataField, chnDataField, fieldValue;
  int orderNo = 0, ctlType = 0, ctlIndex = 0;

  static const RowColumns<SearchFieldRow>& Columns();
  static Table Description();
};

}  // namespace folvane
