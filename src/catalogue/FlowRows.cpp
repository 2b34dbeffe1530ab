#include "catalogue/FlowRows.h"

namespace folvane {
namespace {

const QStringList kHeadSkeleton{"Register_ID",   "File_ID",     "File_Table", "Doc_No",         "MainTitle", "Quantity",
                                "ResponsibleBy", "Create_Date", "RegID",      "Security_Class", "File_Unit", "Note"};
const QStringList kDetailSkeleton{"Register_ID", "File_ID", "Lead_Unit", "Is_Back", "Back_Date", "Real_BackDate"};

// The skeleton's columns and those of one flow, in the order in which Columns() has them.
template <class Row>
Table FlowTable(const QString& name, const QStringList& skeleton, const QStringList& own, const QStringList& key) {
  RowColumns<Row> columns;
  for (const RowColumn<Row>& column : Row::Columns())
    if (skeleton.contains(column.column.name) || own.contains(column.column.name)) columns.push_back(column);
  return TableOf(name, columns, key);
}

Table HeadTable(const QString& name, const QStringList& own) {
  Table table = FlowTable<FlowHeadRow>(name, kHeadSkeleton, own, {"Register_ID"});
  table.indexes = {{"File_ID"}};
  return table;
}

Table DetailTable(const QString& name, const QStringList& own) {
  return FlowTable<FlowDetailRow>(name, kDetailSkeleton, own, {"Register_ID", "File_ID"});
}

}  // namespace

const RowColumns<FlowHeadRow>& FlowHeadRow::Columns() {
  static const RowColumns<FlowHeadRow> columns{
      {"Register_ID", 20, &FlowHeadRow::registerId},
      {"File_ID", 20, &FlowHeadRow::fileId},
      {"File_Table", 50, &FlowHeadRow::fileTable},
      {"Distribute_ID", 50, &FlowHeadRow::flowId},
      {"PassRead_ID", 50, &FlowHeadRow::flowId},
      {"Transact_ID", 50, &FlowHeadRow::flowId},
      {"Distribute_Status", 20, &FlowHeadRow::status},
      {"PassRead_Status", 20, &FlowHeadRow::status},
      {"Transact_Status", 20, &FlowHeadRow::status},
      {"Distribute_Range", 255, &FlowHeadRow::range},
      {"PassRead_Range", 255, &FlowHeadRow::range},
      {"RegID", 20, &FlowHeadRow::regId},
      {"Doc_No", 100, &FlowHeadRow::docNo},
      {"MainTitle", 500, &FlowHeadRow::mainTitle},
      {"Quantity", 20, &FlowHeadRow::quantity},
      {"ResponsibleBy", 200, &FlowHeadRow::responsibleBy},
      {"Create_Date", 20, &FlowHeadRow::createDate},
      {"File_Unit", 200, &FlowHeadRow::fileUnit},
      {"Security_Class", 20, &FlowHeadRow::securityClass},
      {"Note", 500, &FlowHeadRow::note},
      {"UserID", 1000, &FlowHeadRow::userId},
  };
  return columns;
}

Table FlowHeadRow::Distribution() {
  return HeadTable("Distribute_File", {"Distribute_ID", "Distribute_Status", "Distribute_Range"});
}
Table FlowHeadRow::Circulation() {
  return HeadTable("PassRead_File", {"PassRead_ID", "PassRead_Status", "PassRead_Range", "UserID"});
}
Table FlowHeadRow::Handling() { return HeadTable("Transact_File", {"Transact_ID", "Transact_Status", "UserID"}); }

const RowColumns<FlowDetailRow>& FlowDetailRow::Columns() {
  static const RowColumns<FlowDetailRow> columns{
      {"File_ID", &FlowDetailRow::fileId},
      {"Register_ID", 20, &FlowDetailRow::registerId},
      {"Lead_Unit", 500, &FlowDetailRow::leadUnit},
      {"Distribute_Date", ColumnType::Date, &FlowDetailRow::sentDate},
      {"PassRead_Date", ColumnType::Date, &FlowDetailRow::sentDate},
      {"Send_Date", ColumnType::Date, &FlowDetailRow::sentDate},
      {"Quantity", &FlowDetailRow::quantity},
      {"Transact_Mode", 50, &FlowDetailRow::transactMode},
      {"Is_Back", 4, &FlowDetailRow::isBack},
      {"Back_Date", ColumnType::Date, &FlowDetailRow::backDate},
      {"Real_BackDate", ColumnType::Date, &FlowDetailRow::realBackDate},
      {"Back_Quantity", &FlowDetailRow::backQuantity},
      {"Transact_Result", 500, &FlowDetailRow::transactResult},
      {"Is_Hasten", 1, &FlowDetailRow::isHasten},
  };
  return columns;
}

Table FlowDetailRow::Distribution() {
  return DetailTable("Distribute_Details", {"Distribute_Date", "Quantity", "Back_Quantity"});
}
Table FlowDetailRow::Circulation() { return DetailTable("PassRead_Details", {"PassRead_Date"}); }
Table FlowDetailRow::Handling() {
  return DetailTable("Transact_Details",
                     {"Send_Date", "Quantity", "Back_Quantity", "Transact_Mode", "Transact_Result", "Is_Hasten"});
}

}  // namespace folvane
