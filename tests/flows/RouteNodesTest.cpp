#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTreeWidget>
#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowFixture.h"
#include "flows/FlowSheets.h"
#include "flows/RouteDialogs.h"
#include "flows/RouteNodes.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

struct FaultCase {
  std::vector<RouteNode> nodes;
  QStringList faults;
};

TEST(RouteNodes, WhatIsWrongWithARouteIsTold) {
  const std::vector<FaultCase> cases{
      {{{u"1"_s, u"甲"_s, u"单人审核"_s, u"2"_s}, {u"2"_s, u"乙,丙"_s, u"多人顺序"_s, u"0"_s}}, {}},
      {{}, {u"没有第 1 号节点，流程无从开始。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"2"_s}}, {u"节点 1 的下一节点 2 不存在。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u""_s}}, {u"节点 1 没有下一节点；结束请用 0。"_s}},
      {{{u"1"_s, u" "_s, {}, u"0"_s}}, {u"节点 1 没有成员，或者成员中有空白。"_s}},
      {{{u"1"_s, u"甲,,乙"_s, {}, u"0"_s}}, {u"节点 1 没有成员，或者成员中有空白。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"2"_s}, {u"2"_s, u"乙"_s, {}, u"1"_s}}, {u"节点 2 又回到了节点 1，流程不会结束。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"0"_s}, {u"2"_s, u"乙"_s, {}, u"0"_s}}, {u"流程走不到节点 2。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"0"_s}, {u"1"_s, u"乙"_s, {}, u"0"_s}}, {u"序号 1 出现了两次。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"0"_s}, {u"0"_s, u"乙"_s, {}, u"0"_s}},
       {u"节点的序号不能为空或 0。"_s, u"流程走不到节点 0。"_s}},
      {{{u"1"_s, u"甲"_s, {}, u"0"_s}, {u""_s, u"乙"_s, {}, u"0"_s}},
       {u"节点的序号不能为空或 0。"_s, u"流程走不到节点 。"_s}},
  };
  for (const FaultCase& each : cases) EXPECT_EQ(RouteFaults(each.nodes), each.faults);
}

TEST(RouteNodes, TheStatesAlongARoute) {
  const std::vector<RouteNode> nodes{
      {u"1"_s, u"甲"_s, {}, u"3"_s}, {u"2"_s, u"乙"_s, {}, u"0"_s}, {u"3"_s, u"丙"_s, {}, u"2"_s}};
  EXPECT_EQ(RouteInWords(nodes), u"甲 → 丙 → 乙 → 结束"_s);
  EXPECT_EQ(StateOfNode(nodes, u"1"_s, u"3"_s, false), NodeState::Passed);
  EXPECT_EQ(StateOfNode(nodes, u"3"_s, u"3"_s, false), NodeState::Current);
  EXPECT_EQ(StateOfNode(nodes, u"2"_s, u"3"_s, false), NodeState::Ahead);
  EXPECT_EQ(StateOfNode(nodes, u"2"_s, u"3"_s, true), NodeState::Passed);
  EXPECT_EQ(StateOfNode(nodes, u"1"_s, u""_s, false), NodeState::Ahead);   // not started
  EXPECT_EQ(StateOfNode(nodes, u"3"_s, u"9"_s, false), NodeState::Ahead);  // stands at a node that is gone
}

TEST(RouteNodes, ANodeThatNoWayLeadsToIsNeverPassed) {
  const std::vector<RouteNode> nodes{{u"1"_s, u"甲"_s, {}, u"0"_s}, {u"2"_s, u"乙"_s, {}, u"0"_s}};
  EXPECT_EQ(StateOfNode(nodes, u"2"_s, u"1"_s, false), NodeState::Ahead);
  EXPECT_EQ(StateOfNode(nodes, u"2"_s, u"1"_s, true), NodeState::Ahead);
}

TEST(RouteNodes, ARouteWithoutNodesHasNoWords) { EXPECT_EQ(RouteInWords({}), QString()); }

class RouteDialogsTest : public FlowTest {
 protected:
  void SetUp() override {
    FlowTest::SetUp();
    AddHead(Circulation(), {u"1"_s, u"11"_s, u"未传阅"_s, u"甲文"_s});
    AddHead(Circulation(), {u"2"_s, u"12"_s, u"未传阅"_s, u"乙文"_s});
  }
  QString Route(const QString& key) { return RouteInWords(ReadRoute(key)); }
  MessageBoxes boxes_;
};

FOLVANE_ON_EACH_DATABASE(RouteDialogsTest);

TEST_P(RouteDialogsTest, ARouteIsWrittenWholeInPlaceOfTheOneBefore) {
  WriteRoute(u"1"_s, {{u"1"_s, u"甲'"_s, u"单人审核"_s, u"2"_s}, {u"2"_s, u"乙"_s, u"单人审核"_s, u"0"_s}});
  EXPECT_EQ(Route(u"1"_s), u"甲' → 乙 → 结束"_s);
  WriteRoute(u"1"_s, {{u"1"_s, u"丙"_s, u"单人审核"_s, u"0"_s}});
  EXPECT_EQ(Route(u"1"_s), u"丙 → 结束"_s);
  EXPECT_EQ(Database().Value(u"select count(*) from Curr_Flow"_s), u"1"_s);
  const std::vector<RouteNode> twice{{u"1"_s, u"丁"_s, {}, u"0"_s}, {u"1"_s, u"戊"_s, {}, u"0"_s}};
  EXPECT_THROW(WriteRoute(u"1"_s, twice), DataError);
  EXPECT_EQ(Route(u"1"_s), u"丙 → 结束"_s);
}

TEST_P(RouteDialogsTest, TheRouteOfAnotherSheetIsTakenOver) {
  AddRoute(u"2"_s, {u"1|甲|单人审核|0"_s});
  WithWindow(u"frmRouteChoice"_s, [](QWidget& window) {
    auto& list = Find<QTreeWidget>(window, u"lstRoutes"_s);
    ASSERT_EQ(list.topLevelItemCount(), 1);
    EXPECT_EQ(list.topLevelItem(0)->text(0), u"乙文"_s);
    EXPECT_EQ(list.topLevelItem(0)->text(1), u"甲 → 结束"_s);
    EXPECT_THAT(UnnamedControls(window), IsEmpty());
    Click(Find<QWidget>(window, u"CmdOK"_s));
  });
  EXPECT_TRUE(TakeOverRoute(Circulation(), u"1"_s));
  EXPECT_EQ(Route(u"1"_s), u"甲 → 结束"_s);
}

TEST_P(RouteDialogsTest, WithoutOtherRoutesThereIsNothingToTakeOver) {
  WithWindow(u"frmRouteChoice"_s, [](QWidget& window) {
    EXPECT_FALSE(Find<QPushButton>(window, u"CmdOK"_s).isEnabled());
    Press(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(TakeOverRoute(Circulation(), u"1"_s));
}

TEST_P(RouteDialogsTest, ARouteIsMadeOfPeopleAndUnits) {
  design_->Insert(u"UserPopedom"_s, u"UserID,UserName"_s, {u"5"_s, u"王主任"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    auto& ok = Find<QPushButton>(window, u"CmdOK"_s);
    auto& people = Find<QListWidget>(window, u"lstPeople"_s);
    EXPECT_FALSE(ok.isEnabled());
    EXPECT_THAT(UnnamedControls(window), IsEmpty());
    Click(Find<QWidget>(window, u"CmdAddNode"_s));
    EXPECT_FALSE(ok.isEnabled());
    people.setCurrentItem(people.findItems(u"王主任"_s, Qt::MatchExactly).value(0));
    Click(Find<QWidget>(window, u"CmdJoin"_s));
    EXPECT_TRUE(ok.isEnabled());
    Click(Find<QWidget>(window, u"CmdAddNode"_s));
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    EXPECT_EQ(grid.model()->index(0, 3).data().toString(), u"2"_s);
    grid.model()->setData(grid.model()->index(1, 1), u"办公室"_s);
    Click(ok);
  });
  EXPECT_TRUE(EditRoute(Circulation(), u"1"_s));
  EXPECT_EQ(Route(u"1"_s), u"王主任 → 办公室 → 结束"_s);
}

TEST_P(RouteDialogsTest, PeopleAreOfferedAheadOfUnitsAndAnyModeCanBeTyped) {
  design_->Insert(u"UserPopedom"_s, u"UserID,UserName"_s, {u"5"_s, u"王主任"_s});
  design_->Run(u"insert into AssistantDictionary (DicID,Name) values ('d',%1)"_s.arg(Circulation().unitDictionary));
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,Note"_s, {u"d"_s, u"办公室"_s, u"1"_s});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,Note"_s, {u"d"_s, u"财务处"_s, u"2"_s});
  AddRoute(u"1"_s, {u"1|甲|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    const auto& people = Find<QListWidget>(window, u"lstPeople"_s);
    QStringList offered;
    for (int row = 0; row < people.count(); ++row) offered << people.item(row)->text();
    EXPECT_THAT(offered, ElementsAre(u"王主任"_s, u"办公室"_s, u"财务处"_s));
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    grid.setCurrentIndex(grid.model()->index(0, 2));
    auto* mode = grid.viewport()->findChild<QComboBox*>();
    ASSERT_TRUE(mode);
    Retype(*mode, u"会签"_s);
    Press(*mode, Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return grid.model()->index(0, 2).data() == u"会签"_s; }));
    Press(window, Qt::Key_Escape);
  });
  EXPECT_FALSE(EditRoute(Circulation(), u"1"_s));
}

TEST_P(RouteDialogsTest, ARouteThatSomeoneHasStartedOrChangedMeanwhileStays) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  AddRoute(u"2"_s, {u"1|丁|单人审核|0"_s});
  struct Meanwhile {
    QString statement, told, route;
  };
  const std::vector<Meanwhile> cases{
      {u"update PassRead_File set PassRead_Status='传阅中' where Register_ID='1'"_s,
       u"其他用户已经启动了该流程，不能再更改。"_s, u"甲 → 乙 → 结束"_s},
      {u"update Curr_FlowNode set Node_Member='戊' where Node_Number='2' and Flow_ID='1'"_s,
       u"其他用户刚刚更改了该流程，请重新打开后再改。"_s, u"甲 → 戊 → 结束"_s},
      {u"delete from PassRead_File where Register_ID='1'"_s, u"该处理单已被其他用户删除。"_s, u"甲 → 戊 → 结束"_s}};
  for (const Meanwhile& each : cases) {
    WithWindow(u"frmRouteEdit"_s, [&](QWidget& window) {
      auto& grid = Find<QTableView>(window, u"DgNodes"_s);
      grid.model()->setData(grid.model()->index(1, 1), u"丙"_s);
      Database().Native(each.statement);
      Click(Find<QWidget>(window, u"CmdOK"_s));
      EXPECT_TRUE(window.isVisible()) << "what was typed is still there";
      EXPECT_TRUE(boxes_.Last().text.contains(each.told)) << qPrintable(boxes_.Last().text);
      Press(window, Qt::Key_Escape);
    });
    EXPECT_FALSE(EditRoute(Circulation(), u"1"_s));
    EXPECT_EQ(Route(u"1"_s), each.route);
    Database().Native(u"update PassRead_File set PassRead_Status='未传阅'"_s);
  }
}

TEST_P(RouteDialogsTest, NoRouteIsTakenOverInPlaceOfOneThatWasStarted) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|0"_s});
  AddRoute(u"2"_s, {u"1|丁|单人审核|0"_s});
  WithWindow(u"frmRouteChoice"_s, [this](QWidget& window) {
    Database().Native(u"update PassRead_File set PassRead_Status='传阅中' where Register_ID='1'"_s);
    Click(Find<QWidget>(window, u"CmdOK"_s));
  });
  EXPECT_THROW(TakeOverRoute(Circulation(), u"1"_s), DataError);
  EXPECT_EQ(Route(u"1"_s), u"甲 → 结束"_s);
}

TEST_P(RouteDialogsTest, WhatStandsInACellIsSavedWithTheLetterOfTheKey) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    ASSERT_TRUE(WaitUntil([&] { return window.isActiveWindow(); }));
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    grid.setCurrentIndex(grid.model()->index(0, 1));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the editor of the cell before
    auto* line = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(line);
    line->setFocus();
    line->setText(u"李四，王五"_s);
    auto& ok = Find<QPushButton>(window, u"CmdOK"_s);
    ok.animateClick();  // as its letter does, which leaves the focus in the cell
    EXPECT_TRUE(WaitUntil([&] { return !window.isVisible(); }));
  });
  EXPECT_TRUE(EditRoute(Circulation(), u"1"_s));
  EXPECT_EQ(Database().Value(u"select Node_Member from Curr_FlowNode"_s), u"李四,王五"_s);
}

TEST_P(RouteDialogsTest, ANodeThatWillNotBePassedIsPointedOut) {
  design_->Insert(u"UserPopedom"_s, u"UserID,UserName"_s, {u"5"_s, u"王主任"_s});
  AddRoute(u"1"_s, {u"1|甲|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    auto& people = Find<QListWidget>(window, u"lstPeople"_s);
    grid.setCurrentIndex(grid.model()->index(0, 0));
    people.setCurrentItem(people.findItems(u"王主任"_s, Qt::MatchExactly).value(0));
    Click(Find<QWidget>(window, u"CmdJoin"_s));
    EXPECT_EQ(grid.model()->index(0, 2).data(), u"单人审核"_s) << "the mode stays what was chosen";
    EXPECT_EQ(TextIn(window, u"LblFaults"_s), u"流程：甲,王主任 → 结束"_s);
    grid.model()->setData(grid.model()->index(0, 2), u"多人顺序"_s);
    EXPECT_EQ(TextIn(window, u"LblFaults"_s),
              u"流程：甲,王主任 → 结束\n节点 1 有多个成员，按“多人顺序”流程会停在这里，请用“单人审核”。"_s);
    Press(window, Qt::Key_Escape);
  });
  EditRoute(Circulation(), u"1"_s);
}

TEST_P(RouteDialogsTest, EnterOnAKeyOfTheNodesEndsTheDialogAndAddsNone) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    auto& add = Find<QWidget>(window, u"CmdAddNode"_s);
    add.setFocus();
    Press(add, Qt::Key_Return);
    EXPECT_EQ(Find<QTableView>(window, u"DgNodes"_s).model()->rowCount(), 1);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(EditRoute(Circulation(), u"1"_s));
}

TEST_P(RouteDialogsTest, ARemovedNodeIsPassedBy) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|3"_s, u"3|丙|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    grid.setCurrentIndex(grid.model()->index(1, 0));
    Click(Find<QWidget>(window, u"CmdDelNode"_s));
    Click(Find<QWidget>(window, u"CmdOK"_s));
  });
  EXPECT_TRUE(EditRoute(Circulation(), u"1"_s));
  EXPECT_EQ(Route(u"1"_s), u"甲 → 丙 → 结束"_s);
}

TEST_P(RouteDialogsTest, WithoutItsFirstNodeARouteWantsAnother) {
  AddRoute(u"1"_s, {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  WithWindow(u"frmRouteEdit"_s, [](QWidget& window) {
    auto& grid = Find<QTableView>(window, u"DgNodes"_s);
    grid.setCurrentIndex(grid.model()->index(0, 0));
    Click(Find<QWidget>(window, u"CmdDelNode"_s));
    EXPECT_TRUE(TextIn(window, u"LblFaults"_s).startsWith(u"请改正：没有第 1 号节点"_s));
    grid.model()->setData(grid.model()->index(0, 0), u"1"_s);
    Click(Find<QWidget>(window, u"CmdOK"_s));
  });
  EXPECT_TRUE(EditRoute(Circulation(), u"1"_s));
  EXPECT_EQ(Route(u"1"_s), u"乙 → 结束"_s);
}

TEST_P(RouteDialogsTest, HowFarARouteIsIsShownWithItsDetails) {
  AddHead(Handling(), {u"7"_s, u"11"_s, u"处理中"_s});
  AddRoute(u"7"_s, {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  Database().Native(u"update Curr_Flow set CurrNode='2'"_s);
  design_->Insert(u"Transact_Details"_s, u"Register_ID,File_ID,Lead_Unit,Send_Date,Transact_Result,Is_Hasten"_s,
                  {u"7"_s, u"1"_s, u"甲"_s, u"2002-03-04"_s, u"同意"_s, u"0"_s});
  FlowSheets sheets(Handling());
  sheets.SetHasten(u"0"_s);
  sheets.LoadFiles({});
  const auto rows = [](QWidget& window) {
    auto& list = Find<QTreeWidget>(window, u"lstRoutes"_s);
    QStringList rows;
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < list.columnCount(); ++column) cells << list.topLevelItem(row)->text(column);
      rows << cells.join(u'|');
    }
    return rows;
  };
  WithWindow(u"frmNotion"_s, [&](QWidget& window) {
    EXPECT_THAT(rows(window),
                ElementsAre(u"1|✔ 已通过|甲|单人审核|甲|2002-03-04 送出，同意"_s, u"2|▶ 进行中|乙|单人审核||"_s));
  });
  ShowRouteProgress(sheets, {});
  WithWindow(u"frmNotion"_s,
             [&](QWidget& window) { EXPECT_EQ(rows(window), (QStringList{u"2|▶ 进行中|乙|单人审核||"_s})); });
  ShowRouteProgress(sheets, u"乙"_s);
}

}  // namespace
}  // namespace folvane::test
