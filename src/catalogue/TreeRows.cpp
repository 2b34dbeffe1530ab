#include "catalogue/TreeRows.h"

namespace folvane {

const RowColumns<ClassRelationRow>& ClassRelationRow::Columns() {
  static const RowColumns<ClassRelationRow> columns{
      {"ClassId", &ClassRelationRow::classId},
      {"ClassName", 100, &ClassRelationRow::className},
      {"Class_Parent", &ClassRelationRow::classParent},
  };
  return columns;
}

Table ClassRelationRow::Description() {
  return TableOf("Design_ClassRelation", Columns(), {"ClassId"}, {{"Class_Parent"}});
}

const RowColumns<TableRelationRow>& TableRelationRow::Columns() {
  static const RowColumns<TableRelationRow> columns{
      {"TableName", 50, &TableRelationRow::tableName},
      {"ChnTableName", 100, &TableRelationRow::chnTableName},
      {"ClassId", &TableRelationRow::classId},
      {"Table_Parent", 50, &TableRelationRow::tableParent},
      {"RelationField", 50, &TableRelationRow::relationField},
  };
  return columns;
}

Table TableRelationRow::Description() {
  return TableOf("Design_TableRelation", Columns(), {"TableName"}, {{"ClassId"}});
}

}  // namespace folvane
