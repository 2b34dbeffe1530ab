#include "catalogue/QueryRows.h"

namespace folvane {

const RowColumns<ProofingRuleRow>& ProofingRuleRow::Columns() {
  static const RowColumns<ProofingRuleRow> columns{
      {"TableName", 50, &ProofingRuleRow::tableName},
      {"CenterControlIndex", &ProofingRuleRow::centerControlIndex},
      {"FieldName", 50, &ProofingRuleRow::fieldName},
      {"ChnFieldName", 100, &ProofingRuleRow::chnFieldName},
      {"ControlIndex", &ProofingRuleRow::controlIndex},
      {"ControlType", &ProofingRuleRow::controlType},
      {"Relation", 20, &ProofingRuleRow::relation},
      {"CollectValue", 200, &ProofingRuleRow::collectValue},
      {"CustomFormat", 200, &ProofingRuleRow::customFormat},
  };
  return columns;
}

Table ProofingRuleRow::Description() { return TableOf("SaveCollect", Columns(), {"TableName", "CenterControlIndex"}); }

const RowColumns<QueryConditionRow>& QueryConditionRow::Columns() {
  static const RowColumns<QueryConditionRow> columns{
      {"OrderNo", &QueryConditionRow::orderNo},
      {"TableName", 50, &QueryConditionRow::tableName},
      {"CompField", 50, &QueryConditionRow::compField},
      {"ChnCompField", 100, &QueryConditionRow::chnCompField},
      {"CompRelation", 20, &QueryConditionRow::compRelation},
      {"ChnCompRelation", 20, &QueryConditionRow::chnCompRelation},
      {"CompValue", 500, &QueryConditionRow::compValue},
      {"AndOrRelation", 10, &QueryConditionRow::andOrRelation},
      {"ChnAndOrRelation", 10, &QueryConditionRow::chnAndOrRelation},
  };
  return columns;
}

Table QueryConditionRow::Description() { return TableOf("FindCirSave", Columns(), {}, {{"TableName"}}); }

const RowColumns<BrowseOrderRow>& BrowseOrderRow::Columns() {
  static const RowColumns<BrowseOrderRow> columns{
      {"TableName", 50, &BrowseOrderRow::tableName},
      {"OrderStr", 500, &BrowseOrderRow::orderStr},
      {"UserID", &BrowseOrderRow::userId},
  };
  return columns;
}

Table BrowseOrderRow::Description() { return TableOf("FindCirOrder", Columns(), {"TableName", "UserID"}); }

}  // namespace folvane
