#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>
#include <folvane/ReportRequest.h>

#include "flows/FlowWindow.h"
#include "flows/FlowWindowFixture.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

FOLVANE_ON_EACH_DATABASE(FlowWindowTest);

TEST_P(FlowWindowTest, TheGridsOfDistribution) {
  Open(u"frmDistributeFile"_s, [](QWidget& window) {
    EXPECT_THAT(Fields(Heads(window)),
                ElementsAre(u"File_ID"_s, u"Register_ID"_s, u"Distribute_ID"_s, u"Distribute_Status"_s,
                            u"Distribute_Range"_s, u"RegID"_s, u"Doc_No"_s, u"MainTitle"_s, u"Quantity"_s,
                            u"ResponsibleBy"_s, u"Create_Date"_s, u"File_Unit"_s, u"Security_Class"_s));
    EXPECT_THAT(ShownColumns(Heads(window)),
                ElementsAre(u"分发状态"_s, u"分发范围"_s, u"登记号"_s, u"文件编号"_s, u"题名"_s, u"份数"_s, u"责任者"_s,
                            u"接收日期"_s, u"单位"_s, u"密级"_s));
    EXPECT_THAT(ShownColumns(Details(window)),
                ElementsAre(u"序号"_s, u"接收单位"_s, u"分发日期"_s, u"份数"_s, u"需要归还"_s, u"归还日期"_s,
                            u"实际归还日期"_s, u"归还份数"_s));
    EXPECT_EQ(window.findChild<QAction*>(u"Read"_s), nullptr);
    EXPECT_EQ(window.windowTitle(), u"文件分发"_s);
  });
}

TEST_P(FlowWindowTest, TheGridsOfHandling) {
  Open(u"frmTranSact"_s, [](QWidget& window) {
    EXPECT_THAT(ShownColumns(Heads(window)), ElementsAre(u"办理状态"_s, u"登记号"_s, u"文件编号"_s, u"题名"_s,
                                                         u"份数"_s, u"责任者"_s, u"接收日期"_s, u"单位"_s, u"密级"_s));
    EXPECT_THAT(ShownColumns(Details(window)),
                ElementsAre(u"序号"_s, u"办理单位/领导"_s, u"送出日期"_s, u"份数"_s, u"办理方式"_s, u"是否归还"_s,
                            u"归还日期"_s, u"实际归还日期"_s, u"归还份数"_s, u"办理结果"_s));
    EXPECT_TRUE(Key(window, u"Read"_s).isVisible());
    EXPECT_EQ(Key(window, u"Read"_s).text(), u"办理"_s);
    EXPECT_TRUE(Find<QMenu>(window, Handling().routeMenu).menuAction()->isVisible());
  });
}

TEST_P(FlowWindowTest, HasteningHidesTheRoute) {
  hasten_ = u"1"_s;
  AddHeads(Handling(), 1);
  AddDetail(Handling(), K(1), 1, u"handled"_s, u"0"_s);
  AddDetail(Handling(), K(1), 2, u"reminded"_s, u"1"_s);
  Open(u"frmTranSact"_s, [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"催办单管理"_s);
    EXPECT_FALSE(Key(window, u"Read"_s).isVisible());
    EXPECT_FALSE(Find<QMenu>(window, Handling().routeMenu).menuAction()->isVisible());
    EXPECT_EQ(Details(window).model()->rowCount(), 1);
    EXPECT_EQ(Cell(Details(window), 0, 2), u"reminded"_s);
  });
}

TEST_P(FlowWindowTest, TheWindowOpensOnTheRecordsSheetOrTheFirst) {
  AddHeads(Circulation(), 3);
  AddDetail(Circulation(), K(2), 1, u"办公室"_s);
  Open(
      u"frmPassFile"_s,
      [](QWidget& window) {
        EXPECT_EQ(Heads(window).currentIndex().row(), 1);
        EXPECT_EQ(Cell(Details(window), 0, 2), u"办公室"_s);
        EXPECT_FALSE(Key(window, u"NEW"_s).isEnabled());
        EXPECT_FALSE(Entry(window, u"mnuFile"_s, u"mnuAddNew"_s).isEnabled());
        EXPECT_EQ(Find<QLabel>(window, u"RecordCount"_s).text(), u"第 2 张 / 共 3 张"_s);
        EXPECT_THAT(UnnamedControls(window), IsEmpty());
      },
      u"12"_s);
  Open(
      u"frmPassFile"_s, [](QWidget& window) { EXPECT_EQ(Heads(window).currentIndex().row(), 0); }, u"none"_s);
}

TEST_P(FlowWindowTest, AnEmptyListDoesNothingAndSaysWhatToDo) {
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    EXPECT_FALSE(Key(window, u"NEW"_s).isEnabled());
    for (const QString& key : {u"MODIFY"_s, u"DELETE"_s}) Key(window, key).trigger();
    EXPECT_TRUE(boxes_.Requests().empty());
    EXPECT_TRUE(Find<QLabel>(window, u"EmptyHint"_s).isVisible());
    EXPECT_FALSE(Command(window, u"StartRead"_s).isEnabled());
  });
}

TEST_P(FlowWindowTest, TheCommandsOfTheRouteFollowTheStatusOfTheHead) {
  AddHead(Circulation(), {K(3), u"13"_s, u"传阅中"_s});
  AddHead(Circulation(), {K(2), u"12"_s, u"已完成"_s});
  AddHead(Circulation(), {K(1), u"11"_s, u"已传阅"_s});
  Open(u"frmPassFile"_s, [](QWidget& window) {
    const QStringList idle{u"Choise"_s, u"StartRead"_s, u"EditFlow"_s, u"mnuChoice"_s, u"mnuStart"_s, u"mnuEidtFlow"_s};
    const QStringList running{u"NextRead"_s,    u"PNotion"_s,   u"Notion"_s,
                              u"mnuNextFlow"_s, u"mnuNotion"_s, u"mnuAllNotion"_s};
    const auto expect = [&](bool isIdle) {
      for (const QString& name : idle) EXPECT_EQ(Command(window, name).isEnabled(), isIdle) << name.toStdString();
      for (const QString& name : running) EXPECT_EQ(Command(window, name).isEnabled(), !isIdle) << name.toStdString();
    };
    expect(false);  // the first head at opening
    ClickGrid(Heads(window), 1);
    expect(true);
    ClickGrid(Heads(window), 2);
    expect(false);
  });
}

TEST_P(FlowWindowTest, AnotherRowShowsItsDetails) {
  AddHeads(Circulation(), 2);
  AddDetail(Circulation(), K(1), 1, u"财务科"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    EXPECT_EQ(Details(window).model()->rowCount(), 0);
    log_->Take();
    ClickGrid(Heads(window), 1);
    EXPECT_THAT(log_->Take(),
                testing::Contains(u"select * from PassRead_Details where Register_ID='"_s + K(1) + u'\''));
    EXPECT_EQ(Cell(Details(window), 0, 2), u"财务科"_s);
  });
}

TEST_P(FlowWindowTest, AQueryListsTheSheetsThatMeetIt) {
  AddHeads(Circulation(), 3);
  design_->Insert(u"DynamicWindows"_s, u"TableName,FieldName,ChnFieldName,FieldType"_s,
                  {u"PassRead_File"_s, u"MainTitle"_s, u"题名"_s, u"文本型"_s});
  design_->Insert(u"SimSearch"_s, u"TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex"_s,
                  {u"PassRead_File"_s, u"MainTitle"_s, u"题名"_s, u"1"_s, u"1"_s, u"1"_s});
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    WithWindow(u"frmfhfind"_s, [](QWidget& query) { query.close(); });
    Key(window, u"FindOption"_s).trigger();
    EXPECT_EQ(Heads(window).model()->rowCount(), 3);
    WithWindow(u"frmSimFind"_s, [](QWidget& query) {
      Type(*query.focusWidget(), u"题名2"_s);
      Click(Find<QWidget>(query, u"CmdOK"_s));
    });
    Command(window, u"EasyFind"_s).trigger();
    EXPECT_EQ(Heads(window).model()->rowCount(), 1);
    EXPECT_EQ(Cell(Heads(window), 0, 7), u"题名2"_s);
    EXPECT_EQ(Notice(window), u"按查询条件列出 1 张处理单"_s);
    Entry(window, u"mnuFind"_s, u"mnuShowAll"_s).trigger();
    EXPECT_EQ(Heads(window).model()->rowCount(), 3);
  });
}

TEST_P(FlowWindowTest, ARouteRunsFromItsMenu) {
  AddHeads(Circulation(), 1);
  AddRoute(K(1), {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  Open(u"frmPassFile"_s, [](QWidget& window) {
    EXPECT_EQ(Find<QLabel>(window, u"LblRoute"_s).text(), u"流程： 甲 → 乙 → 结束"_s);
    Command(window, u"StartRead"_s).trigger();
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"传阅中"_s);
    EXPECT_EQ(Find<QLabel>(window, u"LblRoute"_s).text(), u"流程： <b>▶ 甲</b> → 乙 → 结束"_s);
    EXPECT_EQ(Cell(Details(window), 0, 2), u"甲"_s);
    EXPECT_TRUE(Command(window, u"mnuNextFlow"_s).isEnabled());
    Command(window, u"mnuNextFlow"_s).trigger();
    EXPECT_EQ(Details(window).model()->rowCount(), 2);
    Command(window, u"NextRead"_s).trigger();
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"已完成"_s);
    EXPECT_TRUE(Command(window, u"mnuStart"_s).isEnabled());
  });
  EXPECT_EQ(boxes_.Last().text, u"已完成公文的传阅工作！"_s);
  EXPECT_EQ(RecordState(u"11"_s, u"ReadState"_s), u"<null>"_s);
}

TEST_P(FlowWindowTest, ANodeThatIsNotPassedShowsTheErrorAndKeepsTheWindow) {
  AddHeads(Circulation(), 1);
  AddRoute(K(1), {u"1|甲,乙|多人顺序|0"_s});
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Command(window, u"StartRead"_s).trigger();
    Command(window, u"NextRead"_s).trigger();
    EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
    EXPECT_EQ(boxes_.Last().flags, 16);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"传阅中"_s);
  });
}

TEST_P(FlowWindowTest, PrintsTheSheetOrTheDetailByTheActiveGrid) {
  AddHeads(Handling(), 1);
  AddDetail(Handling(), K(1), 3, u"a"_s, u"0"_s);
  for (const QString& group : {u"Transact_File"_s, u"Transact_Details"_s})
    design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                    {u"R-"_s + group, u"处理单"_s, group, u"1"_s});
  QStringList told;
  Services().runReport = [&](const ReportRequest& request) {
    EXPECT_EQ(request.secondTable, u"Transact_File"_s);
    told << request.mainTable + u'|' + request.reportId + u'|' + request.selection + u'|' + request.filter;
  };
  Open(u"frmTranSact"_s, [](QWidget& window) {
    const auto choose = [](QWidget& list) {
      auto& reports = Find<QAbstractItemView>(list, u"lstReportName"_s);
      DoubleClickItem(reports, reports.model()->index(0, 0));
    };
    WithWindow(u"frmReportList"_s, choose);
    Entry(window, u"mnuFile"_s, u"mnuPrint"_s).trigger();
    ClickGrid(Details(window), 0);
    WithWindow(u"frmReportList"_s, choose);
    Entry(window, u"mnuFile"_s, u"mnuPrint"_s).trigger();
  });
  EXPECT_THAT(
      told, ElementsAre(u"Transact_File|R-Transact_File|Transact_ID ='ID-"_s + K(1) + u"'|"_s,
                        u"Transact_Details|R-Transact_Details|Transact_ID ='ID-"_s + K(1) + u"' And File_ID = '3'|"_s));
}

TEST_P(FlowWindowTest, AReportThatCannotBeRunIsToldInTheStatusLine) {
  AddHeads(Circulation(), 1);
  Services().runReport = nullptr;
  design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                  {u"1"_s, u"传阅单"_s, u"PassRead_File"_s, u"1"_s});
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    WithWindow(u"frmReportList"_s, [](QWidget& list) { Click(Find<QWidget>(list, u"CmdOK"_s)); });
    Entry(window, u"mnuFile"_s, u"mnuPrint"_s).trigger();
    EXPECT_TRUE(boxes_.Requests().empty());
    EXPECT_TRUE(Notice(window).startsWith(u"打印报表出错，请将后面的出错提示向程序供应商反馈！"_s));
  });
}

TEST_P(FlowWindowTest, WithoutADetailThereIsNothingToPrint) {
  AddHeads(Circulation(), 1);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    Entry(window, u"mnuFile"_s, u"mnuPrint"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"没有数据，不能生成报表！"_s);
    EXPECT_EQ(boxes_.Last().flags, 64);
    EXPECT_EQ(boxes_.Last().title, u"文件传阅"_s);
  });
}

}  // namespace
}  // namespace folvane::test
