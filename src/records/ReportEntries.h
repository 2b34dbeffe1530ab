#pragma once

#include <QString>
#include <vector>

namespace folvane {

/// A report as a menu offers it.
struct ReportEntry {
  QString name, id;
};

/// The reports that the menu of a table offers.
std::vector<ReportEntry> ReadReportEntries(const QString& table);

/// What the menu shows for a table without reports.
ReportEntry NoReports();

}  // namespace folvane
