#include <QLineEdit>
#include <gtest/gtest.h>

#include "archiving/FrmInAmain.h"
#include "shell/ModalWindow.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class InAmainTest : public testing::Test {
 protected:
  QString TitleAfter(const std::function<void(QWidget& window)>& steps) {
    FrmInAmain window;
    WithWindow(u"FrmInAmain"_s, steps);
    ShowModal(window);
    return window.Title;
  }
  MessageBoxes boxes_;
};

TEST_F(InAmainTest, TakesWhatIsTypedInFullWidthAndWithoutBlanks) {
  EXPECT_EQ(TitleAfter([](QWidget& window) {
              EXPECT_EQ(window.windowTitle(), u"请输案卷入题名"_s);
              Type(Find(window, u"TxtTitle"_s), u"2002 年A卷~"_s);
              EXPECT_EQ(TextIn(window, u"TxtTitle"_s), u"２００２年Ａ卷～"_s);
              Click(Find(window, u"CmdOK"_s));
            }),
            u"２００２年Ａ卷～"_s);
}

TEST_F(InAmainTest, AsksAgainForAnEmptyTitle) {
  EXPECT_EQ(TitleAfter([this](QWidget& window) {
              Find<QLineEdit>(window, u"TxtTitle"_s).setText(u"   "_s);
              Click(Find(window, u"CmdOK"_s));
              EXPECT_EQ(boxes_.Last().text, u"请输入你的案卷题名！"_s);
              EXPECT_EQ(boxes_.Last().flags, 64);
              EXPECT_EQ(boxes_.Last().title, u"请输案卷入题名"_s);
              EXPECT_TRUE(window.isVisible());
              Retype(Find(window, u"TxtTitle"_s), u"卷"_s);
              Press(Find(window, u"TxtTitle"_s), Qt::Key_Return);
            }),
            u"卷"_s);
}

TEST_F(InAmainTest, TakesATitleOfExactly160Bytes) {
  const QString title(80, u'卷');
  EXPECT_EQ(TitleAfter([&](QWidget& window) {
              Find<QLineEdit>(window, u"TxtTitle"_s).setText(u' ' + title + u' ');
              Click(Find(window, u"CmdOK"_s));
            }),
            title);
  EXPECT_EQ(boxes_.Requests().size(), 0u);
}

TEST_F(InAmainTest, AsksAgainForATitleOfMoreThan160Bytes) {
  EXPECT_EQ(TitleAfter([this](QWidget& window) {
              Find<QLineEdit>(window, u"TxtTitle"_s).setText(QString(80, u'卷') + u'a');
              Click(Find(window, u"CmdOK"_s));
              EXPECT_EQ(boxes_.Last().text, u"你输入的题名应该控制在160个字符以内！请重新输入！"_s);
              EXPECT_EQ(boxes_.Last().flags, 64);
              EXPECT_TRUE(window.isVisible());
            }),
            QString());
}

TEST_F(InAmainTest, GivesNoTitleWhenItIsClosed) {
  EXPECT_EQ(TitleAfter([](QWidget& window) {
              Type(Find(window, u"TxtTitle"_s), u"卷"_s);
              window.close();
            }),
            QString());
}

TEST_F(InAmainTest, HasANameForEachControl) {
  TitleAfter([](QWidget& window) { EXPECT_EQ(UnnamedControls(window), QStringList()); });
}

}  // namespace
}  // namespace folvane::test
