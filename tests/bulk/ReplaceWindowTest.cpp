#include <QTimer>

#include "bulk/ReplaceWindowFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

FOLVANE_ON_EACH_DATABASE(ReplaceWindowTest);

TEST_P(ReplaceWindowTest, OpensFromTheToolsMenuWithItsLists) {
  AddRecords(1);
  WithReplace([](const Input&, const Replacing& replacing) {
    EXPECT_EQ(replacing.Window().windowTitle(), u"替换"_s);
    const auto& fields = Find<QComboBox>(replacing.Window(), u"CboField"_s);
    EXPECT_EQ(fields.count(), 3);
    EXPECT_EQ(fields.itemText(1), u"文号"_s);
    const auto& ways = Find<QComboBox>(replacing.Window(), u"CboFx"_s);
    EXPECT_EQ((QStringList{ways.itemText(0), ways.itemText(1), ways.itemText(2)}),
              (QStringList{u"所有"_s, u"向上"_s, u"向下"_s}));
    EXPECT_EQ(TextIn(replacing.Window(), u"CboFx"_s), u"所有"_s);
  });
}

TEST_P(ReplaceWindowTest, AKeyReleasedInATextEnablesWhatNeedsIt) {
  AddRecords(1);
  WithReplace([](const Input&, const Replacing& replacing) {
    EXPECT_FALSE(replacing.On(u"CmdFindNext"_s));
    EXPECT_FALSE(replacing.On(u"CmdReplace"_s));
    EXPECT_FALSE(replacing.On(u"CmdReplaceAll"_s));
    replacing.Enter(u"CboFindTxt"_s, u"a"_s);
    EXPECT_TRUE(replacing.On(u"CmdFindNext"_s));
    EXPECT_FALSE(replacing.On(u"CmdReplaceAll"_s));
    replacing.Enter(u"CboRelaceTxt"_s, u"b"_s);
    EXPECT_TRUE(replacing.On(u"CmdReplace"_s));
    EXPECT_TRUE(replacing.On(u"CmdReplaceAll"_s));
    Press(replacing.Control(u"CboRelaceTxt"_s), Qt::Key_Backspace);
    Press(replacing.Control(u"CboFindTxt"_s), Qt::Key_Backspace);
    EXPECT_FALSE(replacing.On(u"CmdFindNext"_s));
    EXPECT_FALSE(replacing.On(u"CmdReplace"_s));
    EXPECT_FALSE(replacing.On(u"CmdReplaceAll"_s));
  });
}

TEST_P(ReplaceWindowTest, OneFieldIsChosenOnlyWhereItIsAskedFor) {
  WithReplace([](const Input&, const Replacing& replacing) {
    EXPECT_TRUE(replacing.Ticked(u"OptAll"_s));
    EXPECT_FALSE(replacing.On(u"CboField"_s));
    replacing.Do(u"OptField"_s);
    EXPECT_TRUE(replacing.On(u"CboField"_s));
    replacing.Do(u"OptAll"_s);
    EXPECT_FALSE(replacing.On(u"CboField"_s));
  });
}

TEST_P(ReplaceWindowTest, WholeWordsAndLikeAreOppositesAndOneIsAlwaysInForce) {
  WithReplace([](const Input&, const Replacing& replacing) {
    EXPECT_TRUE(replacing.Ticked(u"ChkLike"_s));
    replacing.Do(u"ChkAll"_s);
    EXPECT_FALSE(replacing.Ticked(u"ChkLike"_s));
    EXPECT_FALSE(replacing.On(u"ChkLike"_s));
    replacing.Do(u"ChkAll"_s);
    EXPECT_TRUE(replacing.Ticked(u"ChkLike"_s));
    EXPECT_TRUE(replacing.On(u"ChkLike"_s));
    replacing.Do(u"ChkLike"_s);
    EXPECT_TRUE(replacing.Ticked(u"ChkAll"_s));
    EXPECT_FALSE(replacing.On(u"ChkAll"_s));
    replacing.Do(u"ChkLike"_s);
    EXPECT_FALSE(replacing.Ticked(u"ChkAll"_s));
    EXPECT_TRUE(replacing.On(u"ChkAll"_s));
  });
}

TEST_P(ReplaceWindowTest, AHitMovesTheEntryWindowAndSelectsTheTextInItsControl) {
  AddRecords(3);
  Title(2, u"关于2002年的通知"_s);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"2002"_s);
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第2条/共3条"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"关于2002年的通知"_s);
    EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), u"2002"_s);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    EXPECT_TRUE(WaitUntil([&] { return input.Window().isActiveWindow(); }));
    EXPECT_TRUE(replacing.Window().isVisible());
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第2条/共3条"_s);
  });
}

TEST_P(ReplaceWindowTest, TheWholeTextIsSelectedWhereItStartsWithTheTextOrOnlyThePatternHits) {
  AddRecords(2);
  Title(2, u"关于2002年的通知"_s);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Do(u"OptField"_s);
    for (const QString& find : {u"关于"_s, u"2??2"_s}) {
      replacing.Enter(u"CboFindTxt"_s, find);
      replacing.Do(u"CmdFindNext"_s);
      EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), u"关于2002年的通知"_s);
    }
  });
}

TEST_P(ReplaceWindowTest, AHitOfWholeWordsIsSelectedWhole) {
  AddRecords(3);
  Title(2, u"abc"_s);
  Title(3, u"*abc*"_s);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Do(u"ChkAll"_s);
    replacing.Enter(u"CboFindTxt"_s, u"abc"_s);
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第3条/共3条"_s);
    EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), u"*abc*"_s);
  });
}

TEST_P(ReplaceWindowTest, AHitInAComboBoxIsSelectedThere) {
  AddRecords(2);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"号2"_s);
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Text(u"Cmb(1)"_s), u"文号2"_s);
    EXPECT_EQ(SelectedIn(input, u"Cmb(1)"_s), u"号2"_s);
  });
}

TEST_P(ReplaceWindowTest, AHitInAControlOfAnotherKindSelectsNothing) {
  AddRecords(2);
  Run(u"update Lwdj set CreatedDate = '20020304' where ArchiveID = '%1'"_s.arg(Key(2)));
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"0304"_s);
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
    EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), QString());
  });
}

TEST_P(ReplaceWindowTest, CaseIsRegardedWhetherItsBoxIsTickedOrNot) {
  AddRecords(2);
  Title(2, u"xABx"_s);
  WithReplace([](const Input& input, const Replacing& replacing) {
    for (int tick = 0; tick < 2; ++tick) {
      replacing.Enter(u"CboFindTxt"_s, u"ab"_s);
      replacing.Do(u"CmdFindNext"_s);
      EXPECT_EQ(input.Position(), u"当前记录：第1条/共2条"_s);
      replacing.Do(u"ChkApp"_s);
    }
    for (int tick = 0; tick < 2; ++tick) {
      replacing.Enter(u"CboFindTxt"_s, u"AB"_s);
      replacing.Do(u"CmdFindNext"_s);
      EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
      replacing.Do(u"ChkApp"_s);
    }
  });
}

TEST_P(ReplaceWindowTest, SearchesUpAndDownFromTheCurrentRow) {
  AddRecords(5);
  Title(1, u"xx"_s);
  Title(5, u"xx"_s);
  WithReplace(
      [](const Input& input, const Replacing& replacing) {
        replacing.Enter(u"CboFindTxt"_s, u"xx"_s);
        replacing.Choose(u"CboFx"_s, 2);
        replacing.Do(u"CmdFindNext"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第5条/共5条"_s);
        input.Do(u"Previous_R"_s);
        replacing.Choose(u"CboFx"_s, 1);
        replacing.Do(u"CmdFindNext"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第1条/共5条"_s);
      },
      3);
}

TEST_P(ReplaceWindowTest, WithoutAHitNothingIsSaidAndTheRecordStays) {
  AddRecords(3);
  WithReplace(
      [](const Input& input, const Replacing& replacing) {
        replacing.Enter(u"CboFindTxt"_s, u"没有"_s);
        replacing.Do(u"CmdFindNext"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共3条"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名2"_s);
      },
      2);
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(ReplaceWindowTest, NamesItsControlsForScreenReaders) {
  AddRecords(1);
  WithReplace(
      [](const Input&, const Replacing& replacing) { EXPECT_EQ(UnnamedControls(replacing.Window()), QStringList()); });
}

TEST_P(ReplaceWindowTest, FindsOnWithItsShortcut) {
  AddRecords(2);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"号2"_s);
    Press(replacing.Control(u"CboFindTxt"_s), Qt::Key_F3);
    EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
  });
}

TEST_P(ReplaceWindowTest, AnEditInProgressIsNeitherLostNorStoredNorMovedAwayFrom) {
  AddRecords(2);
  Title(2, u"目标"_s);
  WithReplace([&](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"目标"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"Z"_s);
    input.Retype(u"Txt(1)"_s, u"改了"_s);
    for (const QString& command : {u"CmdFindNext"_s, u"CmdReplace"_s, u"CmdReplaceAll"_s}) {
      replacing.Do(command);
      EXPECT_EQ(replacing.Status(), u"正在编辑记录，请先保存或取消。"_s);
      EXPECT_EQ(input.Text(u"Txt(1)"_s), u"改了"_s);
      EXPECT_EQ(Shared().CurrentRecords.AbsolutePosition(), 1);
    }
    EXPECT_EQ(TitleOf(1), u"题名1"_s);
    EXPECT_EQ(TitleOf(2), u"目标"_s);
    input.AwaitEditing();
    input.Do(u"SaveRecord"_s);
    EXPECT_EQ(TitleOf(1), u"改了"_s);
    replacing.Do(u"CmdFindNext"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"目标"_s);
  });
}

TEST_P(ReplaceWindowTest, HitsAreNotSaidToBeNoneWhileARecordIsEdited) {
  AddRecords(2);
  WithReplace([&](const Input&, const Replacing& replace) {
    replace.Enter(u"CboFindTxt"_s, u"题名"_s);
    ASSERT_TRUE(WaitUntil([&] { return replace.Status() == u"符合条件的记录：2条"_s; }));
    Shared().CurrentRecords[u"Amaintitle"_s].SetValue(u"新题"_s);
    replace.Enter(u"CboFindTxt"_s, u"题名1"_s);
    EXPECT_TRUE(WaitUntil([&] { return replace.Status() == u"正在编辑记录，请先保存或取消。"_s; }));
    Shared().CurrentRecords.CancelBatch();
  });
}

TEST_P(ReplaceWindowTest, NothingIsCountedWhileAllIsReplaced) {
  AddRecords(3);
  WithReplace([&](const Input&, const Replacing& replace) {
    replace.Enter(u"CboFindTxt"_s, u"题名"_s);
    replace.Enter(u"CboRelaceTxt"_s, u"新"_s);
    const auto* counting = replace.Window().findChild<QTimer*>();
    ASSERT_TRUE(counting && counting->isActive());
    bool counts = true;
    QTimer::singleShot(0, &replace.Window(), [&] { counts = counting->isActive(); });
    replace.Do(u"CmdReplaceAll"_s);
    EXPECT_FALSE(counts);
  });
}

TEST_P(ReplaceWindowTest, AnEmptyListIsSearchedInPeace) {
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"a"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"b"_s);
    for (const QString& command : {u"CmdFindNext"_s, u"CmdReplace"_s, u"CmdReplaceAll"_s}) replacing.Do(command);
    EXPECT_EQ(input.Position(), u"当前无记录"_s);
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(ReplaceWindowTest, CancelUnloadsItAndTheMenuOpensAFreshOne) {
  AddRecords(1);
  WithReplace([](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"a"_s);
    replacing.Do(u"CmdCancel"_s);
    EXPECT_FALSE(OpenReplaceWindow());
    EXPECT_TRUE(WaitUntil([] { return !DefaultInstance<FrmReplace>::IsLoaded(); }));
    input.Do(u"mnuReplace"_s);
    QWidget* again = OpenReplaceWindow();
    ASSERT_TRUE(again);
    EXPECT_EQ(TextIn(*again, u"CboFindTxt"_s), QString());
    input.Do(u"mnuReplace"_s);
    EXPECT_EQ(OpenReplaceWindow(), again);
  });
}

TEST_P(ReplaceWindowTest, ClosesWithTheEntryWindow) {
  AddRecords(1);
  WithReplace([](const Input& input, const Replacing&) { input.Window().close(); });
  EXPECT_FALSE(OpenReplaceWindow());
  EXPECT_TRUE(WaitUntil([] { return !DefaultInstance<FrmReplace>::IsLoaded(); }));
}

TEST_P(ReplaceWindowTest, HelpIsThatOfWorkingWithData) {
  AddRecords(1);
  program_.Write(u"help.chm"_s, "x");
  QString shown;
  Services().showHelp = [&](QWidget*, const QString&, const QString& topic) { shown = topic; };
  WithReplace([](const Input&, const Replacing& replacing) { replacing.Do(u"Command2"_s); });
  EXPECT_EQ(shown, u"数据操作.htm"_s);
}

}  // namespace
}  // namespace folvane::test
