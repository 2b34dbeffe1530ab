#include "catalogue/ReportRows.h"

namespace folvane {

const RowColumns<ReportRow>& ReportRow::Columns() {
  static const RowColumns<ReportRow> columns{
      {"Report_ID", 20, &ReportRow::reportId},
      {"Report_Name", 100, &ReportRow::reportName},
      {"Report_Group_Id", 50, &ReportRow::reportGroupId},
      {"Report_Type", 2, &ReportRow::reportType},
  };
  return columns;
}

Table ReportRow::Description() { return TableOf("Report_Index", Columns(), {"Report_ID"}, {{"Report_Group_Id"}}); }

const RowColumns<SettingRow>& SettingRow::Columns() {
  static const RowColumns<SettingRow> columns{
      {"Report_Id", 20, &SettingRow::reportId},
      {"Info_Type", 255, &SettingRow::infoType},
      {"Info_Description", 500, &SettingRow::infoDescription},
      {"note", 255, &SettingRow::note},
  };
  return columns;
}

Table SettingRow::Description() { return TableOf("Report_Info", Columns(), {"Report_Id"}); }

}  // namespace folvane
