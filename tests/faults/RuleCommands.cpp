#include <QCheckBox>
#include <QLineEdit>

#include "entry/RuleWindowFixture.h"
#include "faults/Trial.h"

namespace folvane::test {
namespace {

class InRuleWindow : public CommandIn<RuleWindowTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddRule();
    AddRule(u"Lwdj"_s, u"4"_s, 1);
  }
};

class RulesByOk : public InRuleWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&] {
      Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
      Fill(1, u"文号"_s, u"不能是"_s, u"重复值"_s);
      Fill(2, u"登记号"_s, u"大于"_s, u"3"_s);
      Leave(2);
      trial.Try([&] { Click(Control(u"CmdOK"_s)); },
                [&] {
                  return Shown(2) == QStringList({u"登记号"_s, u"大于"_s, u"3"_s});
                });
    });
  }
};

class PatternOfRule : public InRuleWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&] {
      trial.TryFromArm([&] {
        ChooseCustomFormat(0, [&](QWidget& window) {
          Retype(Find(window, u"TxtFormat"_s), u"AB###"_s);
          trial.Arm();
          Click(Find(window, u"CmdOK"_s));
        });
      });
    });
  }
};

class AllRulesRemoved : public InRuleWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&] { trial.Try([&] { Click(Control(u"Check1"_s)); }); });
  }
};

}  // namespace

std::vector<CommandRow> RuleCommands() {
  return {Row<RulesByOk>("write the rules of a table", Keeps::AllOrNothing, 1),
          Row<PatternOfRule>("write the pattern of a rule", Keeps::AllOrNothing, 1),
          Row<AllRulesRemoved>("remove all rules of a table", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
