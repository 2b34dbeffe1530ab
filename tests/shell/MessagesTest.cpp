#include <QFileDialog>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "shell/Messages.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;
using test::WithWindow;

const QString kBoxClass = u"QMessageBox"_s;

TEST(Messages, GoToTheHostAsTheyAreAsked) {
  test::MessageBoxes boxes;
  boxes.Answer(Answer::Yes);
  EXPECT_EQ(ShowMessage(u"要删除吗？"_s, 68, u"系统提示"_s), 6);
  EXPECT_EQ(boxes.Last().text, u"要删除吗？"_s);
  EXPECT_EQ(boxes.Last().flags, 68);
  EXPECT_EQ(boxes.Last().title, u"系统提示"_s);
}

TEST(Messages, FileRequestsGoToTheHost) {
  test::FileDialogs dialogs;
  dialogs.Answer(u"/data/a.dat"_s);
  EXPECT_EQ(AskForFile({true, u"导出"_s, u"/data"_s, u"数据|*.dat"_s}), u"/data/a.dat"_s);
  EXPECT_EQ(dialogs.Requests().back().filter, u"数据|*.dat"_s);
}

/// The library's own box: what it looks like and what it answers.
class OwnMessageBox : public testing::Test {
 protected:
  void SetUp() override {
    Services().messageBox = nullptr;
    Services().fileDialog = nullptr;
  }

  static QStringList Keys(const QWidget& window) {
    QStringList keys;
    for (const auto* key : window.findChildren<QPushButton*>()) keys << key->text();
    keys.sort();
    return keys;
  }
  static QPushButton& Key(const QWidget& window, const QString& text) {
    for (auto* key : window.findChildren<QPushButton*>()) {
      if (key->text() == text) return *key;
    }
    throw std::runtime_error("no key " + text.toStdString());
  }
  // The answer when the key of that text is pressed.
  static int AnswerTo(int flags, const QString& key) {
    WithWindow(kBoxClass, [key](QWidget& window) { test::Click(Key(window, key)); });
    return ShowMessage(u"?"_s, flags);
  }
  static int AnswerToKeyboard(int flags, Qt::Key key) {
    WithWindow(kBoxClass, [key](QWidget& window) {
      test::Press(window, key);
      test::WaitUntil([&] { return !window.isVisible(); });  // a key's click is animated
    });
    return ShowMessage(u"?"_s, flags);
  }
};

TEST_F(OwnMessageBox, HasTheKeysOfItsFlags) {
  const std::vector<std::pair<int, QStringList>> cases = {{0, {u"确定"_s}},
                                                          {64, {u"确定"_s}},
                                                          {49, {u"取消"_s, u"确定"_s}},
                                                          {68, {u"否"_s, u"是"_s}},
                                                          {35, {u"取消"_s, u"否"_s, u"是"_s}},
                                                          {67, {u"取消"_s, u"否"_s, u"是"_s}}};
  for (auto [flags, keys] : cases) {
    keys.sort();
    WithWindow(kBoxClass, [keys = keys, flags = flags](QWidget& window) {
      EXPECT_EQ(Keys(window), keys) << flags;
      test::Click(*window.findChildren<QPushButton*>().first());
    });
    ShowMessage(u"?"_s, flags);
  }
}

TEST_F(OwnMessageBox, AnswersByNumber) {
  EXPECT_EQ(AnswerTo(0, u"确定"_s), 1);
  EXPECT_EQ(AnswerTo(49, u"确定"_s), 1);
  EXPECT_EQ(AnswerTo(49, u"取消"_s), 2);
  EXPECT_EQ(AnswerTo(68, u"是"_s), 6);
  EXPECT_EQ(AnswerTo(35, u"否"_s), 7);
  EXPECT_EQ(AnswerTo(35, u"取消"_s), 2);
}

TEST_F(OwnMessageBox, EscapeCancelsWhereThereIsSomethingToCancel) {
  EXPECT_EQ(AnswerToKeyboard(0, Qt::Key_Escape), 1);
  EXPECT_EQ(AnswerToKeyboard(49, Qt::Key_Escape), 2);
  EXPECT_EQ(AnswerToKeyboard(35, Qt::Key_Escape), 2);
}

TEST_F(OwnMessageBox, AYesOrNoQuestionIsNotLeftWithoutAnAnswer) {
  WithWindow(kBoxClass, [](QWidget& window) {
    test::Press(window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    window.close();
    EXPECT_TRUE(window.isVisible());
    test::Click(Key(window, u"是"_s));
  });
  EXPECT_EQ(ShowMessage(u"?"_s, 68), 6);
}

TEST_F(OwnMessageBox, EnterTakesTheDefaultKey) {
  EXPECT_EQ(AnswerToKeyboard(68, Qt::Key_Return), 6);
  EXPECT_EQ(AnswerToKeyboard(68 + 256, Qt::Key_Return), 7);
  EXPECT_EQ(AnswerToKeyboard(67 + 512, Qt::Key_Return), 2);
}

TEST_F(OwnMessageBox, YAndNAnswerAQuestion) {
  EXPECT_EQ(AnswerToKeyboard(68, Qt::Key_Y), 6);
  EXPECT_EQ(AnswerToKeyboard(67, Qt::Key_N), 7);
}

TEST_F(OwnMessageBox, ShowsTextTitleAndIconPlainly) {
  WithWindow(kBoxClass, [](QWidget& window) {
    auto& box = static_cast<QMessageBox&>(window);
    EXPECT_EQ(box.text(), u"<b>a</b>\nb\nc"_s);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), u"警告"_s);
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
  });
  ShowMessage(u"<b>a</b>\r\nb\n\rc"_s, 48, u"警告"_s);
}

TEST_F(OwnMessageBox, IconsFollowTheFlags) {
  const std::vector<std::pair<int, QMessageBox::Icon>> cases = {{0, QMessageBox::NoIcon},
                                                                {16, QMessageBox::Critical},
                                                                {35, QMessageBox::Question},
                                                                {49, QMessageBox::Warning},
                                                                {64, QMessageBox::Information}};
  for (const auto& [flags, icon] : cases) {
    WithWindow(kBoxClass,
               [icon = icon](QWidget& window) { EXPECT_EQ(static_cast<QMessageBox&>(window).icon(), icon); });
    ShowMessage(u"?"_s, flags);
  }
}

TEST_F(OwnMessageBox, TheNoteStandsUnderTheText) {
  WithWindow(kBoxClass, [](QWidget& window) {
    auto& box = static_cast<QMessageBox&>(window);
    EXPECT_EQ(box.text(), u"确定？"_s);
    EXPECT_EQ(box.informativeText(), u"共 3 条<b>\n不可恢复"_s);
    EXPECT_EQ(window.findChild<QPushButton*>(u"Details"_s), nullptr);
  });
  ShowMessage({u"确定？"_s, 49 + 256, u"警告"_s, u"共 3 条<b>\r\n不可恢复"_s, {}});
}

TEST_F(OwnMessageBox, DetailsUnfoldBehindAKeyThatAnswersNothing) {
  WithWindow(kBoxClass, [](QWidget& window) {
    auto* details = window.findChild<QPlainTextEdit*>(u"DetailsText"_s);
    ASSERT_NE(details, nullptr);
    EXPECT_FALSE(details->isVisible());
    test::Click(Key(window, u"详细信息(&D)"_s));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(details->isVisible());
    EXPECT_EQ(details->toPlainText(), u"语句：Select 1"_s);
    test::Click(Key(window, u"确定"_s));
  });
  EXPECT_EQ(ShowMessage({u"出错"_s, 16, kSystemTitle, {}, u"语句：Select 1"_s}), Answer::Ok);
}

TEST_F(OwnMessageBox, TheFileDialogTakesTheFilter) {
  WithWindow(u"QFileDialog"_s, [](QWidget& window) {
    auto& dialog = static_cast<QFileDialog&>(window);
    EXPECT_EQ(dialog.nameFilters(), (QStringList{u"数据文件 (*.dat *.txt)"_s, u"所有文件 (*)"_s}));
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.defaultSuffix(), u"dat"_s);
    dialog.reject();
  });
  EXPECT_EQ(AskForFile({true, u"导出"_s, {}, u"数据文件(*.dat)|*.dat;*.txt|所有文件|*.*"_s}), QString());
}

}  // namespace
}  // namespace folvane
