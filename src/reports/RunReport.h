#pragma once

#include <QString>

#include <folvane/ReportRequest.h>

namespace folvane {

struct SheetReport;

/// Stands before the reason why a report could not be run.
inline const QString kReportFailed = QStringLiteral("打印报表出错，请将后面的出错提示向程序供应商反馈！");

/// Has the report component run a report; returns when that is over. The request needs its main table, the id and the
/// conditions: connection, second table and user are those that the windows share.
/// @throws DataError Usage when no component is installed; whatever the component throws
void RunReport(ReportRequest request);

/// The click on the entry of that caption in a menu of reports. Without a table, and on the entry that stands for no
/// reports, it does nothing; an error is shown.
void RunMenuReport(const QString& caption, const ReportRequest& request);

/// The same for the design of the report.
void DesignMenuReport(const QString& caption, const ReportRequest& request);

/// The print command of a flow window that has a current sheet: lets the user choose a report and runs it. What hinders
/// it is told under the window's title. @throws DataError; whatever the component throws
void PrintSheet(const SheetReport& report, const QString& windowTitle);

}  // namespace folvane
