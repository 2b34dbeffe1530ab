#include "reports/RunReport.h"

#include <exception>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "reports/ReportEntries.h"
#include "reports/ReportSelection.h"
#include "reports/frmReportList.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Lookups.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

using Component = std::function<void(const ReportRequest&)>;

void Hand(ReportRequest request, const Component& component) {
  if (!component) throw DataError(DataErrorKind::Usage, u"报表组件没有安装。"_s);
  request.connection = SharedConnection();
  if (request.secondTable.isEmpty()) request.secondTable = request.mainTable;
  request.userName = Shared().UserName;
  component(request);
}

template <typename Work>
void Trapped(Work&& work) {
  try {
    work();
  } catch (const std::exception& error) {
    ShowMessage({kReportFailed + ErrorText(error), MessageFlag::Critical, kSystemTitle, {}, ErrorDetails(error)});
  }
}

bool IsForReport(const QString& caption, const ReportRequest& request) {
  return !request.mainTable.isEmpty() && caption != NoReports().reportName;
}

// The name of the report chosen, "" for none.
QString ChooseReport(const QString& group) {
  const LoadedWindow<frmReportList> chooser;
  chooser->gsReportGroupId = group;
  chooser->Open();
  return chooser->gsReturnName;
}

}  // namespace

void RunReport(ReportRequest request) { Hand(std::move(request), Services().runReport); }

void RunMenuReport(const QString& caption, const ReportRequest& request) {
  if (IsForReport(caption, request)) Trapped([&] { RunReport(request); });
}

void DesignMenuReport(const QString& caption, const ReportRequest& request) {
  if (IsForReport(caption, request)) Trapped([&] { Hand(request, Services().designReport); });
}

void PrintSheet(const SheetReport& report, const QString& windowTitle) {
  if (!report.hindrance.isEmpty()) {
    ShowMessage(report.hindrance, MessageFlag::Information, windowTitle);
    return;
  }
  const QString name = ChooseReport(report.table);
  if (name.isEmpty()) return;
  ReportRequest request;
  request.mainTable = report.table;
  request.reportId = GetReportId(report.table, name);
  request.secondTable = report.head;
  request.selection = report.selection;
  RunReport(std::move(request));
}

}  // namespace folvane
