#include <QCheckBox>
#include <QLineEdit>

#include "RuleWindowFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// What the window of proofing rules does without waiting for OK: patterns and the removal of all rules.
class RulesWrittenAtOnceTest : public RuleWindowTest {};

TEST_P(RulesWrittenAtOnceTest, AsksForAPatternAndWritesItAtOnce) {
  AddRule();
  InWindow([&] {
    ChooseCustomFormat(0, [](QWidget& window) {
      EXPECT_EQ(TextIn(window, u"TxtFormat"_s), u"A#"_s);
      Retype(Find(window, u"TxtFormat"_s), u"AB###"_s);
      Click(Find(window, u"CmdOK"_s));
    });
    EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 AB###"_s);
  });
}

TEST_P(RulesWrittenAtOnceTest, GivesANewRuleThePatternThatWasAskedFor) {
  InWindow([&] {
    Fill(0, u"文号"_s, u"只能是"_s, QString());
    ChooseCustomFormat(0, Answer(u"AB###"_s));
    EXPECT_EQ(RuleCount(), u"0"_s);
    Leave(0);
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 AB###"_s);
}

TEST_P(RulesWrittenAtOnceTest, KeepsThePatternWhenItsWindowIsCancelled) {
  AddRule();
  InWindow([&] {
    ChooseCustomFormat(0, [](QWidget& window) {
      Retype(Find(window, u"TxtFormat"_s), u"X"_s);
      Click(Find(window, u"CmdCancel"_s));
    });
  });
  EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 A#"_s);
}

TEST_P(RulesWrittenAtOnceTest, CancelLeavesAPatternAndTheRemovalInPlace) {
  AddRule();
  AddRule(u"Fwdj"_s);
  InWindow([&] {
    ChooseCustomFormat(0, Answer(u"B#"_s));
    Click(Control(u"CmdCancel"_s));
  });
  EXPECT_TRUE(Rule(0).endsWith(u"B#"_s));
  boxes_.Answer(Answer::Yes);
  InWindow([&] {
    Click(Control(u"Check1"_s));
    Click(Control(u"CmdCancel"_s));
  });
  EXPECT_EQ(Rule(0), QString());
  EXPECT_NE(Rule(0, u"Fwdj"_s), QString()) << "the rules of another table stay";
}

TEST_P(RulesWrittenAtOnceTest, RemovesAllRulesAfterAsking) {
  AddRule();
  boxes_.Answer(Answer::No).Answer(Answer::Yes);
  InWindow([&] {
    auto& box = Find<QCheckBox>(Window(), u"Check1"_s);
    Click(box);
    EXPECT_EQ(boxes_.Last().text, u"确定将当前的所有校对条件都删除?"_s);
    EXPECT_EQ(boxes_.Last().flags, 68);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(Shown(0).front(), u"文号"_s);
    Click(box);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(RuleCount(), u"0"_s);
    EXPECT_EQ(Shown(0), (QStringList{QString(), QString(), QString()}));
  });
}

TEST_P(RulesWrittenAtOnceTest, RemovesWhatWaitsAsWell) {
  boxes_.Answer(Answer::Yes);
  InWindow([&] {
    Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
    Click(Control(u"Check1"_s));
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(RuleCount(), u"0"_s);
}

TEST_P(RulesWrittenAtOnceTest, RemovesNothingWhenTheFirstLineIsEmpty) {
  AddRule(u"Lwdj"_s, u"4"_s, 2);
  InWindow([&] {
    Click(Control(u"Check1"_s));
    EXPECT_FALSE(Find<QCheckBox>(Window(), u"Check1"_s).isChecked());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(RuleCount(), u"1"_s);
}

FOLVANE_ON_EACH_DATABASE(RulesWrittenAtOnceTest);

}  // namespace
}  // namespace folvane::test
