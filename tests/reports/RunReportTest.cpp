#include <folvane/DataError.h>

#include "reports/ReportSelection.h"
#include "reports/ReportsFixture.h"
#include "reports/RunReport.h"
#include "reports/frmReportList.h"
#include "shell/DefaultInstance.h"

namespace folvane::test {
namespace {

class RunReportTest : public ReportsTest {
 protected:
  ReportRequest OfLwdj() {
    ReportRequest request;
    request.mainTable = u"Lwdj"_s;
    request.reportId = u"1001"_s;
    request.rightsCondition = u"(Department='办公室')"_s;
    request.filter = u"CreatedDate Like '2002%'"_s;
    request.selection = u"Lwdj.ArchiveID IN ('1')"_s;
    return request;
  }
  void ExpectTrap(const MessageBoxes& boxes, const QString& reason) {
    EXPECT_EQ(boxes.Last().text, u"打印报表出错，请将后面的出错提示向程序供应商反馈！"_s + reason);
  }
};

FOLVANE_ON_EACH_DATABASE(RunReportTest);

TEST_P(RunReportTest, AMenuEntryHandsOverTableIdAndConditions) {
  RunMenuReport(u"收文登记簿"_s, OfLwdj());
  ASSERT_EQ(ran_.size(), 1u);
  EXPECT_EQ(ran_[0].connection, Connected());
  EXPECT_EQ(ran_[0].mainTable, u"Lwdj"_s);
  EXPECT_EQ(ran_[0].reportId, u"1001"_s);
  EXPECT_EQ(ran_[0].secondTable, u"Lwdj"_s);
  EXPECT_EQ(ran_[0].rightsCondition, u"(Department='办公室')"_s);
  EXPECT_EQ(ran_[0].filter, u"CreatedDate Like '2002%'"_s);
  EXPECT_EQ(ran_[0].selection, u"Lwdj.ArchiveID IN ('1')"_s);
  EXPECT_EQ(ran_[0].userName, u"王明"_s);
  EXPECT_EQ(TakeStatements(), QStringList());
}

TEST_P(RunReportTest, WithoutATableAndOnTheEntryForNoneNothingHappens) {
  RunMenuReport(u"文件报表(无)"_s, OfLwdj());
  ReportRequest noTable = OfLwdj();
  noTable.mainTable.clear();
  RunMenuReport(u"收文登记簿"_s, noTable);
  DesignMenuReport(u"文件报表(无)"_s, OfLwdj());
  EXPECT_TRUE(ran_.empty());
  EXPECT_TRUE(designed_.empty());
}

TEST_P(RunReportTest, AnErrorOfTheComponentIsTold) {
  MessageBoxes boxes;
  Services().runReport = [](const ReportRequest&) {
    throw DataError(DataErrorKind::File, u"没有模板"_s, u"Select 1"_s);
  };
  RunMenuReport(u"收文登记簿"_s, OfLwdj());
  ExpectTrap(boxes, u"没有模板"_s);
  EXPECT_EQ(boxes.Last().details, u"语句：Select 1"_s);
}

TEST_P(RunReportTest, AMissingComponentIsTold) {
  MessageBoxes boxes;
  Services().runReport = nullptr;
  RunMenuReport(u"收文登记簿"_s, OfLwdj());
  ExpectTrap(boxes, u"报表组件没有安装。"_s);
  boxes.Clear();
  Services().designReport = nullptr;
  DesignMenuReport(u"收文登记簿"_s, OfLwdj());
  ExpectTrap(boxes, u"报表组件没有安装。"_s);
}

TEST_P(RunReportTest, TheDesignGetsTheSameRequest) {
  DesignMenuReport(u"收文登记簿"_s, OfLwdj());
  ASSERT_EQ(designed_.size(), 1u);
  EXPECT_EQ(designed_[0].reportId, u"1001"_s);
  EXPECT_EQ(designed_[0].connection, Connected());
}

TEST_P(RunReportTest, AFlowWindowPrintsTheReportThatIsChosen) {
  WithWindow(u"frmReportList"_s, [](QWidget& chooser) { Click(Find(chooser, u"CmdOK"_s)); });
  PrintSheet({u"Distribute_File"_s, u"Distribute_File"_s, u"Distribute_ID ='5'"_s, {}}, u"文件分发"_s);
  ASSERT_EQ(ran_.size(), 1u);
  EXPECT_EQ(ran_[0].connection, Connected());
  EXPECT_EQ(ran_[0].mainTable, u"Distribute_File"_s);
  EXPECT_EQ(ran_[0].reportId, u"2001"_s);
  EXPECT_EQ(ran_[0].secondTable, u"Distribute_File"_s);
  EXPECT_EQ(ran_[0].rightsCondition, QString());
  EXPECT_EQ(ran_[0].filter, QString());
  EXPECT_EQ(ran_[0].selection, u"Distribute_ID ='5'"_s);
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"select report_name from  report_index where report_group_id ='Distribute_File' and "
                         "report_type=1"_s,
                         u"select report_id from report_index where report_group_id ='Distribute_File'and "
                         "report_name ='文件分发单'"_s}));
  EXPECT_FALSE(DefaultInstance<frmReportList>::IsLoaded());
}

TEST_P(RunReportTest, AChooserLeftWithoutAReportEndsThePrinting) {
  WithWindow(u"frmReportList"_s, [](QWidget& chooser) { Click(Find(chooser, u"CmdCancel"_s)); });
  PrintSheet({u"Distribute_Details"_s, u"Distribute_File"_s, u"Register_ID ='5' And File_ID = '1'"_s, {}},
             u"文件分发"_s);
  EXPECT_TRUE(ran_.empty());
  EXPECT_EQ(TakeStatements().size(), 1);
  EXPECT_FALSE(DefaultInstance<frmReportList>::IsLoaded());
}

TEST_P(RunReportTest, WhatHindersASheetIsToldUnderTheWindowsTitle) {
  MessageBoxes boxes;
  PrintSheet({u"Distribute_Details"_s, u"Distribute_File"_s, {}, u"没有数据，不能生成报表！"_s}, u"文件分发"_s);
  EXPECT_EQ(boxes.Last().text, u"没有数据，不能生成报表！"_s);
  EXPECT_EQ(boxes.Last().flags, 64);
  EXPECT_EQ(boxes.Last().title, u"文件分发"_s);
  EXPECT_TRUE(ran_.empty());
  EXPECT_EQ(TakeStatements(), QStringList());
}

TEST_P(RunReportTest, AnIndexThatCannotBeReadIsTheCallersError) {
  Database().Native(u"drop table Report_Index"_s);
  const SheetReport report{u"Distribute_File"_s, u"Distribute_File"_s, u"Distribute_ID ='5'"_s, {}};
  EXPECT_THROW(PrintSheet(report, u"文件分发"_s), DataError);
  EXPECT_TRUE(ran_.empty());
  EXPECT_FALSE(DefaultInstance<frmReportList>::IsLoaded());
}

}  // namespace
}  // namespace folvane::test
