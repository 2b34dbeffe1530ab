#pragma once

#include <QString>
#include <vector>

#include "catalogue/ReportRows.h"

namespace folvane {

/// The reports that the menu of a table offers.
std::vector<ReportRow> ReadReportEntries(const QString& table);

/// What the menu shows for a table without reports.
ReportRow NoReports();

}  // namespace folvane
