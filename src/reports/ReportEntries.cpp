#include "reports/ReportEntries.h"

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

QString ReportTypeOf(const QString& group) {
  return group == u"yearreport"_s || group == u"statistics"_s ? u"2"_s : u"1"_s;
}

QStringList ReadReportNames(const QString& group, const QString& type) {
  QStringList names;
  const auto reports =
      ReadRows<ReportRow>(SharedConnection(), u"select report_name from  report_index where report_group_id ='"_s +
                                                  group + u"' and report_type="_s + type);
  for (const ReportRow& report : reports) names << report.reportName;
  return names;
}

}  // namespace folvane
