// The windows of flows, of originals and of the settings of transfers know no rights of their own: whoever gets into
// them may do there what they offer. Rights stand before them, in the windows that open them.
#include <QMenu>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "Rights.h"
#include "flows/FlowCommands.h"
#include "flows/FlowWindowFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using testing::Contains;

/// A user without any right on the records whose sheets he sees.
class FlowRightsTest : public FlowWindowTest {
 protected:
  void SetUp() override {
    FlowWindowTest::SetUp();
    Shared().UserId = u"5"_s;
  }
  void Give(const QString& flag) {
    design_->Run(u"delete from UserPopedomScope"_s);
    design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                    {u"5"_s, u"Lwdj"_s, flag, flag, flag, flag == u"0"_s ? u"1=2"_s : QString()});
  }
  static QStringList ReachableIn(QWidget& window, const Flow& flow) {
    QStringList reachable;
    for (const QString& command : CommandsOf(FlowCommands(flow))) {
      const bool isKey = command.startsWith(u"key "_s);
      const auto* menu = isKey ? nullptr : window.findChild<QMenu*>(command);
      const bool isOn = isKey  ? Key(window, command.mid(4)).isEnabled()
                        : menu ? menu->menuAction()->isEnabled()
                               : Command(window, command).isEnabled();
      if (isOn) reachable << command;
    }
    return reachable;
  }
  QStringList ReachableCommands(const Flow& flow) {
    QStringList reachable;
    Open(flow.window, [&](QWidget& window) {
      ClickGrid(Details(window), 0);
      reachable = ReachableIn(window, flow);
    });
    return reachable;
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(FlowRightsTest);

TEST_P(FlowRightsTest, ASheetIsNoRecordAndItsCommandsAskForNoRight) {
  for (const Flow* flow : {&Distribution(), &Circulation(), &Handling()}) {
    AddHeads(*flow, 1);
    AddDetail(*flow, K(1), 1, u"办公室"_s, u"0"_s);
    Give(u"1"_s);
    const QStringList all = ReachableCommands(*flow);
    EXPECT_THAT(all, Contains(u"key DELETE"_s));
    Give(u"0"_s);
    EXPECT_EQ(ReachableCommands(*flow), all) << flow->headTable.toStdString();
    design_->Run(u"delete from Lwdj"_s);
  }
}

TEST_P(FlowRightsTest, NoStatementOfAFlowAsksForTheRights) {
  AddHeads(Circulation(), 1);
  Give(u"0"_s);
  log_->Take();
  Open(Circulation().window, [&](QWidget& window) {
    ClickGrid(Heads(window), 0);
    boxes_.Answer(6);
    Key(window, u"DELETE"_s).trigger();
  });
  EXPECT_EQ(log_->Take().filter(u"UserPopedomScope"_s), QStringList());
  EXPECT_EQ(design_->Value(u"select count(*) from PassRead_File"_s), u"0"_s);
}

}  // namespace folvane::test
