#include "entry/EntryReports.h"

#include <QMenu>

#include "catalogue/ReadRows.h"
#include "catalogue/ReportRows.h"
#include "reports/ReportEntries.h"
#include "reports/ReportSelection.h"
#include "reports/RunReport.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "widgets/WindowCommands.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void LoadReportMenu(WindowCommands& commands, const QString& table, const std::function<QString()>& currentKey) {
  const auto reports = ReadRows<ReportRow>(
      SharedConnection(), u"select Report_ID,report_name from report_index where report_group_id ='"_s + table +
                              u"' and report_type='1'"_s);
  QMenu& menu = commands.Menu(u"ReportDesign"_s);
  QMenu& keyMenu = commands.KeyMenu(u"ReportView"_s);
  menu.clear();
  keyMenu.clear();
  using Run = void (*)(const QString&, const ReportRequest&);
  const auto add = [&](QMenu& to, const QString& name, const ReportRow& report, Run run) {
    QAction* entry = to.addAction(QString(report.reportName).replace(u'&', u"&&"_s));
    entry->setObjectName(name);
    entry->setProperty("Tag", report.reportId);
    ConnectGuarded(entry, &QAction::triggered, &commands, [table, currentKey, report, run] {
      ReportRequest request;
      request.mainTable = table;
      request.reportId = report.reportId;
      request.selection = RecordSelection(table, currentKey());
      run(report.reportName, request);
    });
  };
  int number = 0;
  for (const ReportRow& report : reports.empty() ? std::vector{NoReports()} : reports)
    add(menu, u"menuTemp(%1)"_s.arg(++number), report, RunMenuReport);
  for (const ReportRow& report : reports) add(keyMenu, u"M_"_s + report.reportId, report, RunMenuReport);
  if (reports.empty()) return;
  menu.addSeparator();
  QMenu& designs = *menu.addMenu(u"设计(&D)"_s);
  for (const ReportRow& report : reports) add(designs, u"D_"_s + report.reportId, report, DesignMenuReport);
}

}  // namespace folvane
