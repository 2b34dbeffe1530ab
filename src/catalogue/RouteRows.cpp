#include "catalogue/RouteRows.h"

namespace folvane {

const RowColumns<RouteRow>& RouteRow::Columns() {
  static const RowColumns<RouteRow> columns{
      {"File_ID", 20, &RouteRow::fileId},
      {"CurrNode", 10, &RouteRow::currNode},
      {"IsCreateDetails", 1, &RouteRow::isCreateDetails},
  };
  return columns;
}

Table RouteRow::Description() { return TableOf("Curr_Flow", Columns(), {"File_ID"}); }

const RowColumns<RouteNodeRow>& RouteNodeRow::Columns() {
  static const RowColumns<RouteNodeRow> columns{
      {"Flow_ID", 20, &RouteNodeRow::flowId},     {"Node_Number", 10, &RouteNodeRow::nodeNumber},
      {"Next_Node", 10, &RouteNodeRow::nextNode}, {"Node_Member", 500, &RouteNodeRow::nodeMember},
      {"Node_Mode", 20, &RouteNodeRow::nodeMode}, {"Readed", 500, &RouteNodeRow::readed},
  };
  return columns;
}

Table RouteNodeRow::Description() { return TableOf("Curr_FlowNode", Columns(), {"Flow_ID", "Node_Number"}); }

}  // namespace folvane
