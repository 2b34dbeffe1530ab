#pragma once

#include "catalogue/RowDescription.h"

// What users keep of their queries, orders and proofing rules.
namespace folvane {

/// SaveCollect: a proofing rule; centerControlIndex counts the rules of a table from 0.
struct ProofingRuleRow {
  QString tableName, fieldName, chnFieldName, relation, collectValue, customFormat;
  int centerControlIndex = 0, controlIndex = 0, controlType = 0;

  static const RowColumns<ProofingRuleRow>& Columns();
  static Table Description();
};

/// FindCirSave: a saved condition of the compound query. All users of a table share them; orderNo is a number, so that
/// the tenth row stands behind the ninth; deleting one renumbers the rest in one statement, which a unique key would
/// refuse.
struct QueryConditionRow {
  QString tableName, compField, chnCompField, compRelation, chnCompRelation, compValue, andOrRelation, chnAndOrRelation;
  int orderNo = 0;

  static const RowColumns<QueryConditionRow>& Columns();
  static Table Description();
};

/// FindCirOrder: the order of a table for a user, as it stands behind Order By.
struct BrowseOrderRow {
  QString tableName, orderStr;
  int userId = 0;

  static const RowColumns<BrowseOrderRow>& Columns();
  static Table Description();
};

}  // namespace folvane
