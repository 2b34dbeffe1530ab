#include <QLabel>
#include <QPushButton>

#include "entry/FrmCustomFormat.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class FrmCustomFormatTest : public testing::Test {
 protected:
  void InWindow(const QString& pattern, const WindowSteps& steps) {
    WithWindow(u"FrmCustomFormat"_s, steps);
    window_.Open(pattern);
  }
  FrmCustomFormat window_;
  MessageBoxes boxes_;
};

TEST_F(FrmCustomFormatTest, ExplainsThePatterns) {
  InWindow({}, [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"设置自定义格式"_s);
    const QStringList texts{u"如何设置自定义格式"_s,
                            u"特殊符号表示"_s,
                            u"\"?\" 代表(任一个单个字符)、\"*\"(0以上字符)\"和#(任意单个数)"_s,
                            QString(),
                            u"\"AB###\"  可表示为 \"AB123\" 或 \"ab3934\""_s,
                            u"\"ABC*XYZ 可表示为 \"ABCDEFGHI-VWXYZ\""_s,
                            u"\"1???X\"  可表示为 \"1234X\" 或 \"1uxcx\""_s,
                            u"请详细阅读示例说明后在下面框中输入自定义格式......"_s};
    for (int i = 0; i < texts.size(); ++i) EXPECT_EQ(TextIn(window, u"Label%1"_s.arg(i + 1)), texts[i]);
  });
}

TEST_F(FrmCustomFormatTest, NamesItsControlsForScreenReaders) {
  InWindow({}, [](QWidget& window) { EXPECT_EQ(UnnamedControls(window), QStringList()); });
}

TEST_F(FrmCustomFormatTest, GivesThePatternBackWithoutOuterBlanks) {
  InWindow({}, [](QWidget& window) {
    Type(Find(window, u"TxtFormat"_s), u" AB### "_s);
    Click(Find(window, u"CmdOK"_s));
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(window_.ReturnStr, u"AB###"_s);
}

TEST_F(FrmCustomFormatTest, BeginsWithThePatternOfTheRuleToBeTypedOver) {
  InWindow(u"A#"_s, [](QWidget& window) {
    EXPECT_EQ(TextIn(window, u"TxtFormat"_s), u"A#"_s);
    Type(Find(window, u"TxtFormat"_s), u"B*"_s);
    Press(Find(window, u"TxtFormat"_s), Qt::Key_Return);
  });
  EXPECT_EQ(window_.ReturnStr, u"B*"_s);
}

TEST_F(FrmCustomFormatTest, WantsAPattern) {
  InWindow({}, [this](QWidget& window) {
    Type(Find(window, u"TxtFormat"_s), u"  "_s);
    Click(Find(window, u"CmdOK"_s));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(boxes_.Last().text, u"不允许输入空格式,请重输!"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Critical);
    EXPECT_TRUE(Find(window, u"TxtFormat"_s).hasFocus());
  });
  EXPECT_EQ(window_.ReturnStr, QString());
}

TEST_F(FrmCustomFormatTest, GivesNothingBackWhenCancelled) {
  InWindow({}, [](QWidget& window) {
    Type(Find(window, u"TxtFormat"_s), u"A#"_s);
    Press(Find(window, u"TxtFormat"_s), Qt::Key_Return);
  });
  InWindow(u"A#"_s, [](QWidget& window) {
    Click(Find(window, u"CmdCancel"_s));
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(window_.ReturnStr, QString());
}

}  // namespace
}  // namespace folvane::test
