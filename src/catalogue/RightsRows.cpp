#include "catalogue/RightsRows.h"

namespace folvane {

const RowColumns<UserRow>& UserRow::Columns() {
  static const RowColumns<UserRow> columns{
      {"UserID", 20, &UserRow::userId},
      {"UserName", 50, &UserRow::userName},
  };
  return columns;
}

Table UserRow::Description() { return TableOf("UserPopedom", Columns(), {"UserID"}); }

const RowColumns<TableRightsRow>& TableRightsRow::Columns() {
  static const RowColumns<TableRightsRow> columns{
      {"UserID", 20, &TableRightsRow::userId},
      {"PopTableName", 50, &TableRightsRow::popTableName},
      {"PopStrChn", 255, &TableRightsRow::popStrChn},
      {"PopEditData", 1, &TableRightsRow::popEditData},
      {"PopPrintData", 1, &TableRightsRow::popPrintData},
      {"PopLookFile", 1, &TableRightsRow::popLookFile},
      {"PopCondition", 500, &TableRightsRow::popCondition},
  };
  return columns;
}

Table TableRightsRow::Description() { return TableOf("UserPopedomScope", Columns(), {"UserID", "PopTableName"}); }

const RowColumns<RightsFieldRow>& RightsFieldRow::Columns() {
  static const RowColumns<RightsFieldRow> columns{
      {"UserId", 20, &RightsFieldRow::userId},
      {"PopTableName", 50, &RightsFieldRow::popTableName},
      {"FieldName", 50, &RightsFieldRow::fieldName},
  };
  return columns;
}

Table RightsFieldRow::Description() {
  return TableOf("UserPopedomScopeDetails", Columns(), {"UserId", "PopTableName", "FieldName"});
}

}  // namespace folvane
