#include <QComboBox>
#include <gmock/gmock.h>

#include "flows/FlowWindowFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {
using testing::IsEmpty;

/// What the keys of a flow's window do with sheets and details.
class SheetCommandsTest : public FlowWindowTest {};

FOLVANE_ON_EACH_DATABASE(SheetCommandsTest);

TEST_P(SheetCommandsTest, DetailsCanBeAddedOnlyWhileTheyAreTheActiveGrid) {
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

TEST_P(SheetCommandsTest, AnAddedDetailIsShownAndMakesTheHeadDone) {
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

TEST_P(SheetCommandsTest, AHeadThatAnotherUserChangesMeanwhileIsToldAndShown) {
  AddHeads(Circulation(), 1);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    WithWindow(u"frmPassEdit"_s, [this](QWidget& dialog) {
      Database().Native(u"update PassRead_File set PassRead_Status='暂缓'"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
    });
    Key(window, u"NEW"_s).trigger();
    EXPECT_TRUE(Notice(window).startsWith(u"未能完成："_s));
    EXPECT_EQ(Details(window).model()->rowCount(), 1);
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"暂缓"_s);
    WithWindow(u"frmPassEdit"_s, [](QWidget& dialog) { Click(Find<QWidget>(dialog, u"cmdSave"_s)); });
    Key(window, u"NEW"_s).trigger();
    EXPECT_EQ(Cell(Heads(window), 0, 3), u"已传阅"_s);
  });
}

TEST_P(SheetCommandsTest, WhereAnAddedDetailCannotBeShownTheStatusLineTells) {
  AddHeads(Circulation(), 1);
  log_.reset();
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    Click(*Details(window).viewport());
    std::optional<LockedStatement> locked;
    WithWindow(u"frmPassEdit"_s, [&](QWidget& dialog) {
      locked.emplace(*Connected(), 4);  // behind the detail and the new status of its head: the route
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
    });
    Key(window, u"NEW"_s).trigger();
    EXPECT_TRUE(locked->WasRun());
    EXPECT_TRUE(Notice(window).startsWith(u"未能完成："_s)) << Notice(window).toStdString();
  });
  EXPECT_EQ(HeadText(Circulation(), K(1), u"PassRead_Status"_s), u"已传阅"_s);
}

TEST_P(SheetCommandsTest, ASerialThatIsTakenOrBlankIsRefused) {
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
      EXPECT_TRUE(Find<QWidget>(dialog, u"txtID"_s).hasFocus());
      Find<QWidget>(dialog, u"txtID"_s).setProperty("text", u"1"_s);  // its own: not looked up
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_FALSE(dialog.isVisible());
    });
    DoubleClickItem(Details(window), Details(window).model()->index(0, 2));
  });
}

TEST_P(SheetCommandsTest, EnterOpensTheDialogOfTheActiveGrid) {
  AddHeads(Circulation(), 1);
  AddDetail(Circulation(), K(1), 1, u"a"_s);
  Open(u"frmPassFile"_s, [](QWidget& window) {
    bool head = false, detail = false;
    Press(Heads(window), Qt::Key_Tab);
    EXPECT_TRUE(Key(window, u"NEW"_s).isEnabled());
    WithWindow(u"frmPassEdit"_s, [&](QWidget&) { detail = true; });
    Press(Details(window), Qt::Key_Enter);
    ClickGrid(Heads(window), 0);
    WithWindow(u"frmPassDetails"_s, [&](QWidget&) { head = true; });
    Press(Heads(window), Qt::Key_Return);
    EXPECT_TRUE(head && detail);
  });
}

TEST_P(SheetCommandsTest, ADetailThatAnotherUserDeletesMeanwhileIsShownNoMore) {
  AddHeads(Circulation(), 1);
  AddDetail(Circulation(), K(1), 1, u"a"_s);
  AddDetail(Circulation(), K(1), 2, u"b"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    ClickGrid(Details(window), 1);
    WithWindow(u"frmPassEdit"_s, [this](QWidget& dialog) {
      Database().Native(u"delete from PassRead_Details where File_ID=2"_s);
      dialog.close();
    });
    Press(Details(window), Qt::Key_Enter);
    EXPECT_EQ(Details(window).model()->rowCount(), 1);
    EXPECT_EQ(Cell(Details(window), 0, 2), u"a"_s);
    bool isOpened = false;
    WithWindow(u"frmPassEdit"_s, [&](QWidget&) { isOpened = true; });
    Press(Details(window), Qt::Key_Enter);
    EXPECT_TRUE(isOpened) << "the one that is left is current";
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(SheetCommandsTest, ALineThatARouteHasMadeIsSavedWithoutAnyQuantity) {
  AddHeads(Handling(), 1);
  AddRoute(K(1), {u"1|甲|单人审核|0"_s});
  Open(u"frmTranSact"_s, [this](QWidget& window) {
    boxes_.Answer(1).Answer(1);
    Command(window, u"StartRead"_s).trigger();
    WithWindow(u"frmTranEdit"_s, [](QWidget& dialog) {
      Retype(Find<QWidget>(dialog, u"txtResult"_s), u"同意"_s);
      Click(Find<QWidget>(dialog, u"cmdSave"_s));
      EXPECT_FALSE(dialog.isVisible());
    });
    DoubleClickItem(Details(window), Details(window).model()->index(0, 2));
  });
  EXPECT_EQ(Database().Value(u"select count(*) from Transact_Details where Transact_Result='同意' and Quantity=0 and "
                             "Back_Quantity=0"_s),
            u"1"_s);
}

TEST_P(SheetCommandsTest, EmptyQuantitiesBecomeZeroAsTheBoxIsLeft) {
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

TEST_P(SheetCommandsTest, TheHeadDialogShowsTheCopiesAndWritesTheRest) {
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

TEST_P(SheetCommandsTest, EachFlowOffersTheWordsOfItsOwnDictionaries) {
  struct Offered {
    const Flow& flow;
    QString states, units;
  };
  const std::vector<Offered> flows{{Distribution(), u"分发情况"_s, u"分发单位"_s},
                                   {Circulation(), u"传阅情况"_s, u"审阅单位/领导"_s},
                                   {Handling(), u"处理情况"_s, u"审阅单位/领导"_s}};
  for (const QString& name : {u"分发情况"_s, u"分发单位"_s, u"传阅情况"_s, u"审阅单位/领导"_s, u"处理情况"_s}) {
    design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {name, name});
    design_->Insert(u"AssistantDicKey"_s, u"DicID,Name"_s, {name, u"甲"_s + name});
  }
  for (const Offered& offered : flows) {
    SCOPED_TRACE(offered.flow.window.toStdString());
    AddHeads(offered.flow, 1);
    AddDetail(offered.flow, K(1), 1, u"a"_s, u"0"_s);
    const auto finds = [](QWidget& dialog, const QString& box, const QString& word) {
      return Find<QComboBox>(dialog, box).findText(word) >= 0;
    };
    Open(offered.flow.window, [&](QWidget& window) {
      WithWindow(offered.flow.headDialog, [&](QWidget& dialog) {
        EXPECT_TRUE(finds(dialog, u"cboStatus"_s, u"甲"_s + offered.states));
        dialog.close();
      });
      DoubleClickItem(Heads(window), Heads(window).model()->index(0, 7));
      WithWindow(offered.flow.detailDialog, [&](QWidget& dialog) {
        EXPECT_TRUE(finds(dialog, u"CboUnit"_s, u"甲"_s + offered.units));
        dialog.close();
      });
      ClickGrid(Details(window), 0);
      Press(Details(window), Qt::Key_Enter);
    });
    design_->Run(u"delete from Lwdj"_s);
  }
}

TEST_P(SheetCommandsTest, WhatAQuoteBrokeIsToldAndShownAgain) {
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

TEST_P(SheetCommandsTest, DeletingAsksAndGoesByTheActiveGrid) {
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

TEST_P(SheetCommandsTest, ADeletionTellsWhatAnotherUserHasChanged) {
  AddHeads(Circulation(), 1);
  AddDetail(Circulation(), K(1), 1, u"a"_s);
  AddDetail(Circulation(), K(1), 2, u"b"_s);
  Open(u"frmPassFile"_s, [this](QWidget& window) {
    const auto noteOf = [&](const QString& statement, QTableView& grid, int row) {
      ClickGrid(grid, row);
      Database().Native(statement);
      boxes_.Answer(7);
      Key(window, u"DELETE"_s).trigger();
      return boxes_.Last().note;
    };
    EXPECT_EQ(noteOf(u"update PassRead_Details set Lead_Unit='c' where File_ID=1"_s, Details(window), 0),
              u"其他用户刚刚作了更改（审阅单位/领导由“a”改为“c”）。"_s);
    EXPECT_EQ(noteOf(u"delete from PassRead_Details where File_ID=2"_s, Details(window), 1),
              u"其他用户刚刚更改或删除了它。"_s);
    EXPECT_EQ(noteOf(u"update PassRead_File set Note='等'"_s, Heads(window), 0),
              u"其他用户刚刚作了更改（备注由“”改为“等”）。"_s);
    EXPECT_EQ(noteOf(u"select 1"_s, Heads(window), 0), QString());
  });
}

TEST_P(SheetCommandsTest, ManySheetsGoAfterOneQuestion) {
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

TEST_P(SheetCommandsTest, ASerialThatCannotBeCountedIsToldInTheStatusLine) {
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
