#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>
#include <gmock/gmock.h>

#include "flows/FlowFixture.h"
#include "flows/FlowWindow.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

QString K(int number) { return DesignedDatabase::Key(number); }

QAction& Command(QWidget& window, const QString& name) {
  auto* action = window.findChild<QAction*>(name);
  if (!action) throw std::runtime_error("no command " + name.toStdString());
  return *action;
}

/// A flow's window, driven by the names of its controls.
class FlowWindowTest : public FlowTest {
 protected:
  void AddHeads(const Flow& flow, int count) {
    for (int number = 1; number <= count; ++number) {
      AddRecord(QString::number(10 + number), u"题名%1"_s.arg(number));
      AddHead(flow, {K(number), QString::number(10 + number), flow.idle, u"题名%1"_s.arg(number)});
    }
    log_->Take();
  }
  void Open(const QString& name, WindowSteps steps, const QString& archiveId = {}) {
    WithWindow(name, std::move(steps));
    if (name == u"frmDistributeFile"_s) {
      ShowDistribution(archiveId);
    } else if (name == u"frmPassFile"_s) {
      ShowCirculation(archiveId);
    } else {
      ShowHandling(hasten_, archiveId);
    }
  }
  static QTableView& Heads(QWidget& window) { return Find<QTableView>(window, u"DgFile"_s); }
  static QTableView& Details(QWidget& window) { return Find<QTableView>(window, u"DgDetails"_s); }
  static QAction& Key(QWidget& window, const QString& name) { return FindAction(window, u"tlb"_s, name); }
  static QAction& Entry(QWidget& window, const QString& menu, const QString& name) {
    return FindAction(window, menu, name);
  }
  static void ClickGrid(QTableView& grid, int row) { ClickItem(grid, grid.model()->index(row, 3)); }
  static QString Cell(QTableView& grid, int row, int column) {
    return grid.model()->index(row, column).data().toString();
  }
  static QStringList ShownColumns(QTableView& grid) {
    QStringList captions;
    for (int column = 0; column < grid.model()->columnCount(); ++column) {
      if (!grid.isColumnHidden(column)) captions << grid.model()->headerData(column, Qt::Horizontal).toString();
    }
    return captions;
  }
  static QStringList Fields(QTableView& grid) {
    QStringList fields;
    for (int column = 0; column < grid.model()->columnCount(); ++column)
      fields << grid.model()->headerData(column, Qt::Horizontal, Qt::UserRole).toString();
    return fields;
  }
  static QString Notice(QWidget& window) { return Find<QLabel>(window, u"Notice"_s).text(); }

  MessageBoxes boxes_;
  QString hasten_ = u"0"_s;
};

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

TEST_P(FlowWindowTest, DetailsCanBeAddedOnlyWhileTheyAreTheActiveGrid) {
  AddHeads(Circulation(), 2);
  Open(u"frmPassFile"_s, [](QWidget& window) {
    Click(*Details(window).viewport());
    EXPECT_TRUE(Key(window, u"NEW"_s).isEnabled());
    EXPECT_TRUE(Entry(window, u"mnuFile"_s, u"mnuAddNew"_s).isEnabled());
    ClickGrid(Heads(window), 1);
    EXPECT_FALSE(Key(window, u"NEW"_s).isEnabled());
    EXPECT_FALSE(Entry(window, u"mnuFile"_s, u"mnuAddNew"_s).isEnabled());
  });
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

TEST_P(FlowWindowTest, AnAddedDetailIsShownAndMakesTheHeadDone) {
  AddHeads(Circulation(), 1);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    WithWindow(u"frmPassEdit"_s, [](QWidget& dialog) {
      EXPECT_EQ(TextIn(dialog, u"txtID"_s), u"1"_s);
      EXPECT_EQ(TextIn(dialog, u"DtpDistr"_s), u"2002-03-04"_s);
      EXPECT_THAT(UnnamedControls(dialog), IsEmpty());
      Retype(Find<QWidget>(dialog, u"CboUnit"_s), u"办公室"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
    });
    Key(window, u"NEW"_s).trigger();
    EXPECT_EQ(Cell(Details(window), 0, 2), u"办公室"_s);
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"已传阅"_s);
  });
  EXPECT_EQ(HeadText(Circulation(), K(1), u"PassRead_Status"_s), u"已传阅"_s);
  EXPECT_EQ(RecordState(u"11"_s, u"ReadState"_s), u"已传阅"_s);
}

TEST_P(FlowWindowTest, ASerialThatIsTakenOrBlankIsRefused) {
  AddHeads(Circulation(), 1);
  AddDetail(Circulation(), K(1), 1, u"a"_s);
  AddDetail(Circulation(), K(1), 2, u"b"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    WithWindow(u"frmPassEdit"_s, [this](QWidget& dialog) {
      Retype(Find<QWidget>(dialog, u"txtID"_s), u"2x"_s);
      EXPECT_EQ(TextIn(dialog, u"txtID"_s), u"2"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_EQ(boxes_.Last().text, u"对不起，该序号已存在，请重新录入！"_s);
      Find<QWidget>(dialog, u"txtID"_s).setProperty("text", u" "_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_EQ(boxes_.Last().text, u"对不起，登记号不能为空！"_s);
      EXPECT_EQ(boxes_.Last().flags, 48);
      Find<QWidget>(dialog, u"txtID"_s).setProperty("text", u"1"_s);  // its own: not looked up
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_FALSE(dialog.isVisible());
    });
    DoubleClickItem(Details(window), Details(window).model()->index(0, 2));
  });
}

TEST_P(FlowWindowTest, EmptyQuantitiesBecomeZeroAsTheBoxIsLeft) {
  AddHeads(Distribution(), 1);
  AddDetail(Distribution(), K(1), 1, u"a"_s);
  Open(u"frmDistributeFile"_s, [](QWidget& window) {
    WithWindow(u"frmDistrEdit"_s, [](QWidget& dialog) {
      auto& box = Find<QWidget>(dialog, u"txtQuantity"_s);
      Retype(box, u"3"_s);
      Press(box, Qt::Key_Backspace);
      Press(box, Qt::Key_Tab);
      EXPECT_EQ(TextIn(dialog, u"txtQuantity"_s), u"0"_s);
      Retype(Find<QWidget>(dialog, u"txtBackQuantity"_s), u"9"_s);  // more than were handed out: nothing compares
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
    });
    DoubleClickItem(Details(window), Details(window).model()->index(0, 2));
    EXPECT_EQ(Cell(Details(window), 0, 8), u"9"_s);
  });
}

TEST_P(FlowWindowTest, TheHeadDialogShowsTheCopiesAndWritesTheRest) {
  AddHeads(Circulation(), 1);
  design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {u"1"_s, u"传阅情况"_s});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name"_s, {u"1"_s, u"暂缓"_s});
  Open(u"frmPassFile"_s, [](QWidget& window) {
    WithWindow(u"frmPassDetails"_s, [](QWidget& dialog) {
      EXPECT_EQ(TextIn(dialog, u"txtMainTitle"_s), u"题名1"_s);
      EXPECT_GE(Find<QComboBox>(dialog, u"cboStatus"_s).findText(u"暂缓"_s), 0);
      EXPECT_THAT(UnnamedControls(dialog), IsEmpty());
      Retype(Find<QWidget>(dialog, u"cboStatus"_s), u"暂缓"_s);
      Retype(Find<QWidget>(dialog, u"txtRange"_s), u"局领导"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
    });
    DoubleClickItem(Heads(window), Heads(window).model()->index(0, 7));
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"暂缓"_s);
    EXPECT_EQ(Cell(Heads(window), 0, 4), u"局领导"_s);
    EXPECT_FALSE(Command(window, u"StartRead"_s).isEnabled());  // no longer idle
  });
  EXPECT_EQ(RecordState(u"11"_s, u"ReadState"_s), u"<null>"_s);
}

TEST_P(FlowWindowTest, WhatAQuoteBrokeIsToldAndShownAgain) {
  AddHeads(Circulation(), 1);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    WithWindow(u"frmPassDetails"_s, [](QWidget& dialog) {
      Retype(Find<QWidget>(dialog, u"TxtNote"_s), u"O'Neil"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_FALSE(dialog.isVisible());
    });
    Key(window, u"MODIFY"_s).trigger();
    EXPECT_TRUE(boxes_.Requests().empty());
    EXPECT_TRUE(Notice(window).startsWith(u"没有保存："_s));
    WithWindow(u"frmPassDetails"_s, [](QWidget& dialog) { EXPECT_EQ(TextIn(dialog, u"TxtNote"_s), u"O'Neil"_s); });
    Key(window, u"MODIFY"_s).trigger();
  });
}

TEST_P(FlowWindowTest, DeletingAsksAndGoesByTheActiveGrid) {
  AddHeads(Circulation(), 2);
  AddDetail(Circulation(), K(2), 1, u"a"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    ClickGrid(Details(window), 0);
    boxes_.Answer(7);
    Key(window, u"DELETE"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"确实要删除当前的处理明细记录吗？"_s);
    EXPECT_EQ(boxes_.Last().flags, 68);
    EXPECT_EQ(boxes_.Last().title, u"文件传阅"_s);
    EXPECT_EQ(Details(window).model()->rowCount(), 1);
    boxes_.Answer(6);
    Key(window, u"DELETE"_s).trigger();
    EXPECT_EQ(Details(window).model()->rowCount(), 0);
    Key(window, u"DELETE"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"当前数据已为空,无法继续删除!"_s);
    ClickGrid(Heads(window), 0);
    boxes_.Answer(6);
    Key(window, u"DELETE"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"确实要删除当前的处理单吗？"_s);
    EXPECT_EQ(Heads(window).model()->rowCount(), 1);
    EXPECT_EQ(Heads(window).currentIndex().row(), 0);
  });
}

TEST_P(FlowWindowTest, ManySheetsGoAfterOneQuestion) {
  AddHeads(Circulation(), 4);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    ClickGrid(Heads(window), 0);
    ClickItem(Heads(window), Heads(window).model()->index(1, 3), Qt::LeftButton, Qt::ControlModifier);
    boxes_.Answer(6);
    Command(window, u"DelBatch"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"确实要删除选中的 2 张处理单及其明细吗？"_s);
    EXPECT_EQ(Heads(window).model()->rowCount(), 2);
    boxes_.Answer(7);
    Command(window, u"DelAll"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"确实要删除列出的全部 2 张处理单及其明细吗？"_s);
    EXPECT_EQ(Heads(window).model()->rowCount(), 2);
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

TEST_P(FlowWindowTest, ASerialThatCannotBeCountedIsToldInTheStatusLine) {
  AddHeads(Circulation(), 1);
  AddDetail(Circulation(), K(1), 40000, u"a"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    Key(window, u"NEW"_s).trigger();
    EXPECT_TRUE(boxes_.Requests().empty());
    EXPECT_TRUE(Notice(window).startsWith(u"未能完成：无法计算下一个序号"_s)) << Notice(window).toStdString();
  });
}

}  // namespace
}  // namespace folvane::test
