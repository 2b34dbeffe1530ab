#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "catalogue/ReportRows.h"

namespace folvane {

/// The reports that the menu of a table offers.
std::vector<ReportRow> ReadReportEntries(const QString& table);

/// What the menu shows for a table without reports.
ReportRow NoReports();

/// The type of report that is chosen from in a group: "2" for yearly figures and statistics, else "1".
QString ReportTypeOf(const QString& group);

/// The names of a group's reports of a type. @throws DataError
QStringList ReadReportNames(const QString& group, const QString& type);

}  // namespace folvane
