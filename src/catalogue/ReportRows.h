#pragma once

#include "catalogue/RowDescription.h"

// Reports and the settings that are kept beside them.
namespace folvane {

/// Report_Index: a report of a group; type 1 is offered for records, type 2 for yearly figures.
struct ReportRow {
  QString reportId, reportName, reportGroupId, reportType;

  static const RowColumns<ReportRow>& Columns();
  static Table Description();
};

/// Report_Info: settings under fixed keys: the store of originals and its account.
struct SettingRow {
  QString reportId, infoType, infoDescription, note;

  static const RowColumns<SettingRow>& Columns();
  static Table Description();
};

}  // namespace folvane
