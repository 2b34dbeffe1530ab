#pragma once

#include <QString>

#include <folvane/ReportRequest.h>

#include "components/reports/ReportPages.h"

namespace folvane::reports {

class ReportData;

/// A report that has been laid out.
struct LaidOutReport {
  QString title;
  ReportPages pages;
};

/// Reads the rows of a request and puts them into the report's template, or into the default one.
/// @throws DataError
LaidOutReport LayOutReport(const ReportRequest& request);

/// The same with rows that have been read and a template that need not be saved. A layout of the page that the user has
/// kept comes first.
LaidOutReport LayOutReport(const ReportRequest& request, const ReportData& data, const QString& templateText);

/// Shows a report in a window to be looked at and printed. @throws DataError before the window is shown
void RunReport(const ReportRequest& request);

}  // namespace folvane::reports
