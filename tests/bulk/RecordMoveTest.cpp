#include <QApplication>
#include <QLineEdit>

#include "base/TypedValues.h"
#include "bulk/FrmRecordMove.h"
#include "shell/LoadedWindow.h"
#include "shell/ModalWindow.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Asks for a record or a page; what the steps leave is the number to go to.
int Ask(bool isPage, const std::function<void(QWidget&)>& steps) {
  const LoadedWindow<FrmRecordMove> window;
  window->MoveType = isPage;
  window->MoveNumber = -1;
  WithWindow(u"FrmRecordMove"_s, steps);
  ShowModal(*window);
  return window->MoveNumber;
}

int AskByTyping(bool isPage, const QString& number) {
  return Ask(isPage, [&](QWidget& window) {
    Type(Find<QWidget>(window, u"TxtMoveNo"_s), number);
    Click(Find<QWidget>(window, u"CmdOK"_s));
    EXPECT_FALSE(window.isVisible());
  });
}

QString Question(QWidget& window) { return TextIn(window, u"LblCirName"_s); }

}  // namespace

TEST(RecordMoveTest, PageOneGivesZeroTheSameAsCancel) {
  EXPECT_EQ(AskByTyping(true, u"1"_s), 0);
  EXPECT_EQ(Ask(true, [](QWidget& window) { Click(Find<QWidget>(window, u"CmdCancel"_s)); }), 0);
}

TEST(RecordMoveTest, PageTwoGivesThirtyAndPageThreeSixty) {
  EXPECT_EQ(AskByTyping(true, u"2"_s), 30);
  EXPECT_EQ(AskByTyping(true, u"3"_s), 60);
}

TEST(RecordMoveTest, NamesItsControlsForScreenReaders) {
  Ask(false, [](QWidget& window) { EXPECT_EQ(UnnamedControls(window), QStringList()); });
}

TEST(RecordMoveTest, PageZeroGivesZero) { EXPECT_EQ(AskByTyping(true, u"0"_s), 0); }

TEST(RecordMoveTest, RecordZeroGivesZero) { EXPECT_EQ(AskByTyping(false, u"0"_s), 0); }

TEST(RecordMoveTest, ARecordNumberIsGivenAsItStands) { EXPECT_EQ(AskByTyping(false, u"0017"_s), 17); }

TEST(RecordMoveTest, DigitsBeyondThirtyTwoBitsFailAtTheConversionAndTheDialogStays) {
  MessageBoxes boxes;
  const int number = Ask(false, [&](QWidget& window) {
    Retype(Find<QWidget>(window, u"TxtMoveNo"_s), u"2147483648"_s);
    Click(Find<QWidget>(window, u"CmdOK"_s));
    ASSERT_EQ(boxes.Requests().size(), 1u);
    EXPECT_EQ(boxes.Last().title, u"系统提示"_s);
    EXPECT_TRUE(window.isVisible());
    Retype(Find<QWidget>(window, u"TxtMoveNo"_s), u"2147483647"_s);
    Click(Find<QWidget>(window, u"CmdOK"_s));
  });
  EXPECT_EQ(number, 2147483647);
}

TEST(RecordMoveTest, APageWhoseRecordsAreBeyondThirtyTwoBitsFailsToo) {
  EXPECT_EQ(MoveNumberOf(u"71582789"_s, true), 2147483640);
  EXPECT_THROW(MoveNumberOf(u"71582790"_s, true), NumberError);
}

TEST(RecordMoveTest, TheQuestionEndsInWhatIsAskedFor) {
  Ask(false, [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"数据快速定位"_s);
    EXPECT_EQ(Question(window), u"请键入您要移动到指定数据的记录号"_s);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>(window, u"TxtMoveNo"_s));
  });
  Ask(true, [](QWidget& window) { EXPECT_EQ(Question(window), u"请键入您要移动到指定数据的页码"_s); });
}

TEST(RecordMoveTest, ARepeatedActivationAppendsTheWordASecondTime) {
  Ask(true, [](QWidget& window) {
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &activation);
    EXPECT_EQ(Question(window), u"请键入您要移动到指定数据的页码页码"_s);
  });
}

TEST(RecordMoveTest, ComingBackFromAMessageBoxIsNoActivation) {
  Services().messageBox = nullptr;
  Ask(true, [](QWidget& window) {
    WithWindow(u"QMessageBox"_s, [](QWidget& box) { box.close(); });
    Click(Find<QWidget>(window, u"CmdOK"_s));
    EXPECT_TRUE(WaitUntil([&] { return window.isActiveWindow(); }));
    EXPECT_EQ(Question(window), u"请键入您要移动到指定数据的页码"_s);
  });
}

TEST(RecordMoveTest, WithoutANumberItSaysSoAndStays) {
  MessageBoxes boxes;
  Ask(false, [&](QWidget& window) {
    Click(Find<QWidget>(window, u"CmdOK"_s));
    EXPECT_EQ(boxes.Last().text, u"请您输入要移动的记录号！"_s);
    EXPECT_EQ(boxes.Last().title, u"数据快速定位"_s);
    EXPECT_TRUE(window.isVisible());
  });
  Ask(true, [&](QWidget& window) {
    Click(Find<QWidget>(window, u"CmdOK"_s));
    EXPECT_EQ(boxes.Last().text, u"请您输入要移动的页码！"_s);
  });
}

TEST(RecordMoveTest, OnlyDigitsAreLetIn) {
  int beeps = 0;
  Services().beep = [&] { ++beeps; };
  Ask(false, [&](QWidget& window) {
    auto& number = Find<QLineEdit>(window, u"TxtMoveNo"_s);
    Type(number, u"1a2-.3４"_s);
    EXPECT_EQ(number.text(), u"123"_s);
    EXPECT_EQ(beeps, 4);
    Press(number, Qt::Key_Backspace);
    EXPECT_EQ(number.text(), u"12"_s);
    number.selectAll();
    number.insert(u"-5"_s);
    EXPECT_EQ(number.text(), u"12"_s);
  });
}

TEST(RecordMoveTest, EnterInTheBoxRunsOkAndEscapeCancels) {
  EXPECT_EQ(Ask(false,
                [](QWidget& window) {
                  auto& number = Find<QWidget>(window, u"TxtMoveNo"_s);
                  Type(number, u"9"_s);
                  Press(number, Qt::Key_Return);
                  EXPECT_FALSE(window.isVisible());
                }),
            9);
  EXPECT_EQ(Ask(false,
                [](QWidget& window) {
                  auto& number = Find<QWidget>(window, u"TxtMoveNo"_s);
                  Type(number, u"9"_s);
                  Press(number, Qt::Key_Escape);
                  EXPECT_FALSE(window.isVisible());
                }),
            0);
}

TEST(RecordMoveTest, ClosingTheWindowCancels) {
  EXPECT_EQ(Ask(false, [](QWidget& window) { window.close(); }), 0);
}

}  // namespace folvane::test
