#include "records/ReportEntries.h"

#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

std::vector<ReportEntry> ReadReportEntries(const QString& table) {
  Recordset rows;
  rows.Open(u"Select Report_Name,Report_ID From Report_Index where Report_Group_Id ='"_s + table +
                u"' and report_type = '1'"_s,
            SharedConnection(), CursorType::Static, LockType::ReadOnly);
  std::vector<ReportEntry> entries;
  for (; !rows.EOF_(); rows.MoveNext()) {
    entries.push_back({rows[u"Report_Name"_s].Text(), rows[u"Report_ID"_s].Text()});
  }
  return entries;
}

ReportEntry NoReports() { return {u"文件报表(无)"_s, u"0"_s}; }

}  // namespace folvane
