#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <gmock/gmock.h>

#include "bulk/FrmReplace.h"
#include "entry/InputFixture.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

/// The window that finds and replaces, read and driven by the names of its controls.
class Replacing {
 public:
  explicit Replacing(QWidget& window) : window_(window) {}

  QWidget& Window() const { return window_; }
  QWidget& Control(const QString& name) const { return Find<QWidget>(window_, name); }
  bool On(const QString& name) const { return Control(name).isEnabled(); }
  bool Ticked(const QString& name) const { return Find<QAbstractButton>(window_, name).isChecked(); }
  QString Status() const { return TextIn(window_, u"LblStatus"_s); }
  void Enter(const QString& name, const QString& text) const { Retype(Control(name), text); }
  void Do(const QString& name) const { Click(Control(name)); }
  void Choose(const QString& name, int entry) const {
    auto& combo = Find<QComboBox>(window_, name);
    combo.setFocus();
    Press(combo, Qt::Key_Home);
    for (int step = 0; step < entry; ++step) Press(combo, Qt::Key_Down);
  }

 private:
  QWidget& window_;
};

QWidget* OpenReplaceWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"FrmReplace"_s && window->isVisible()) return window;
  }
  return nullptr;
}

/// The window beside the entry window, over titles and document numbers.
class ReplaceWindowTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    openReplace_ = &OpenReplace;
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"DocNo"_s, u"文号"_s, ControlKind::Cmb});
    Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  }
  void TearDown() override {
    DefaultInstance<FrmReplace>::Unload();
    InputTest::TearDown();
  }
  void Title(int number, const QString& title) {
    Run(u"update Lwdj set Amaintitle = '%2' where ArchiveID = '%1'"_s.arg(Key(number), title));
  }
  QString TitleOf(int number) {
    return Value(u"select Amaintitle from Lwdj where ArchiveID = '%1'"_s.arg(Key(number)));
  }

  void WithReplace(const std::function<void(const Input&, const Replacing&)>& steps, qint64 position = 1) {
    InWindow(
        [&](const Input& input) {
          input.Do(u"mnuReplace"_s);
          QWidget* window = OpenReplaceWindow();
          ASSERT_TRUE(window);
          ASSERT_TRUE(WaitUntil([&] { return window->isActiveWindow(); }));
          steps(input, Replacing(*window));
        },
        false, position);
  }
  static QString SelectedIn(const Input& input, const QString& control) {
    QWidget& widget = input.Control(control);
    const auto* box = qobject_cast<QLineEdit*>(&widget);
    return (box ? box : widget.findChild<QLineEdit*>())->selectedText();
  }
};

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

TEST_P(ReplaceWindowTest, ReplaceOverwritesTheHitOfTheCurrentRecordInTheTableOnly) {
  AddRecords(2);
  Title(1, u"xaby"_s);
  Title(2, u"xaby"_s);
  WithReplace([&](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"ab"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"Z"_s);
    replacing.Do(u"CmdReplace"_s);
    EXPECT_EQ(TitleOf(1), u"Z"_s);
    EXPECT_EQ(TitleOf(2), u"xaby"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"xaby"_s);
    EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), u"ab"_s);
    EXPECT_EQ(replacing.Status(), u"已替换的记录：1条，重新读取后显示新值"_s);
  });
}

TEST_P(ReplaceWindowTest, ReplaceAllOverwritesTheHitsOfItsWayAndTellsTheirNumberBeforeAndAfter) {
  AddRecords(4);
  WithReplace(
      [&](const Input& input, const Replacing& replacing) {
        replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
        replacing.Enter(u"CboRelaceTxt"_s, u"a[b"_s);
        replacing.Choose(u"CboFx"_s, 2);
        EXPECT_TRUE(WaitUntil([&] { return replacing.Status() == u"符合条件的记录：3条"_s; }));
        replacing.Do(u"CmdReplaceAll"_s);
        EXPECT_EQ(replacing.Status(), u"已替换的记录：3条，重新读取后显示新值"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共4条"_s);
      },
      2);
  EXPECT_EQ((QStringList{TitleOf(1), TitleOf(2), TitleOf(4)}), (QStringList{u"题名1"_s, u"a[b"_s, u"a[b"_s}));
}

TEST_P(ReplaceWindowTest, TellsHowManyHitsCouldNotBeWrittenAndWhy) {
  AddRecords(3);
  Run(u"create unique index OneTitle on Lwdj (Amaintitle)"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"同名"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_EQ(replacing.Status(),
              u"已替换的记录：1条，重新读取后显示新值\n未能写入的记录：2条，字段“题名”的值已经存在。"_s);
  });
  EXPECT_EQ((QStringList{TitleOf(1), TitleOf(2)}), (QStringList{u"同名"_s, u"题名2"_s}));
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(ReplaceWindowTest, TellsThatTheReplacementIsTooLong) {
  AddRecords(2);
  Design({u"FondsNo"_s, u"全宗号"_s});
  Run(u"update Lwdj set FondsNo = '01'"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Do(u"OptField"_s);
    replacing.Choose(u"CboField"_s, 3);
    replacing.Enter(u"CboFindTxt"_s, u"01"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"五字全宗号"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_EQ(replacing.Status(),
              u"已替换的记录：0条\n未能写入的记录：2条，字段“全宗号”的值太长：有 10 个字节，最多 4 个字节。"_s);
  });
}

TEST_P(ReplaceWindowTest, TellsThatTheCurrentRecordCouldNotBeWritten) {
  AddRecords(2);
  Run(u"create unique index OneTitle on Lwdj (Amaintitle)"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"题名2"_s);
    replacing.Do(u"CmdReplace"_s);
    EXPECT_EQ(replacing.Status(), u"已替换的记录：0条\n未能写入的记录：1条，字段“题名”的值已经存在。"_s);
  });
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

TEST_P(ReplaceWindowTest, AQuoteInTheReplacementReplacesNothingAndShowsNoBox) {
  AddRecords(2);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"it's"_s);
    replacing.Do(u"CmdReplace"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_TRUE(replacing.Status().startsWith(u"已替换的记录：0条\n未能写入的记录：2条，"_s));
  });
  EXPECT_EQ(TitleOf(1), u"题名1"_s);
  EXPECT_TRUE(boxes_.Requests().empty());
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
