#pragma once

#include "catalogue/RowDescription.h"

// The class tree and the tables that hang in it.
namespace folvane {

/// Design_ClassRelation: a node of the class tree. Top classes have the parent 1.
struct ClassRelationRow {
  QString className;
  int classId = 0, classParent = 0;

  static const RowColumns<ClassRelationRow>& Columns();
  static Table Description();
};

/// Design_TableRelation: a table under its class and under its parent table; relationField names the column, in both
/// tables, that ties a child record to its parent.
struct TableRelationRow {
  QString tableName, chnTableName, tableParent, relationField;
  int classId = 0;

  static const RowColumns<TableRelationRow>& Columns();
  static Table Description();
};

}  // namespace folvane
