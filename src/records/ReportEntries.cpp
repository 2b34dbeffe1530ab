#include "records/ReportEntries.h"

#include "catalogue/ReadRows.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

std::vector<ReportRow> ReadReportEntries(const QString& table) {
  return ReadRows<ReportRow>(SharedConnection(),
                             u"Select Report_Name,Report_ID From Report_Index where Report_Group_Id ='"_s + table +
                                 u"' and report_type = '1'"_s);
}

ReportRow NoReports() {
  ReportRow none;
  none.reportName = u"文件报表(无)"_s;
  none.reportId = u"0"_s;
  return none;
}

}  // namespace folvane
