#pragma once

#include <vector>

#include <folvane/ReportRequest.h>

#include "catalogue/Ddl.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The design tables on a fresh database that the shared state points to, with the reports of some groups, and a report
/// component that only takes the requests down.
class ReportsTest : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Furnish(&CreateCatalogue);
    AddReport(u"1001"_s, u"收文登记簿"_s, u"Lwdj"_s, u"1"_s);
    AddReport(u"1002"_s, u"收文处理单"_s, u"Lwdj"_s, u"1"_s);
    AddReport(u"1009"_s, u"收文年报"_s, u"Lwdj"_s, u"2"_s);
    AddReport(u"2001"_s, u"文件分发单"_s, u"Distribute_File"_s, u"1"_s);
    AddReport(u"2002"_s, u"签收表"_s, u"Distribute_Details"_s, u"1"_s);
    AddReport(u"3001"_s, u"年度报表"_s, u"yearreport"_s, u"2"_s);
    AddReport(u"3009"_s, u"不是年报"_s, u"yearreport"_s, u"1"_s);
    AddReport(u"3101"_s, u"文种统计"_s, u"statistics"_s, u"2"_s);
    Shared().Connection = Connected();
    Shared().UserName = u"王明"_s;
    Connected()->OnStatement([this](const QString& statement) { statements_ << statement; });
    Services().runReport = [this](const ReportRequest& request) { ran_.push_back(request); };
    Services().designReport = [this](const ReportRequest& request) { designed_.push_back(request); };
  }
  void TearDown() override {
    Connected()->OnStatement({});
    Shared().Connection.reset();
    Shared().UserName.clear();
  }

  void AddReport(const QString& id, const QString& name, const QString& group, const QString& type) {
    Database().Native(
        u"insert into Report_Index (Report_ID,Report_Name,Report_Group_Id,Report_Type) values "
        "('%1','%2','%3','%4')"_s.arg(id, name, group, type));
  }
  /// The statements since the last call.
  QStringList TakeStatements() { return std::exchange(statements_, {}); }

  std::vector<ReportRequest> ran_, designed_;

 private:
  QStringList statements_;
};

}  // namespace folvane::test
