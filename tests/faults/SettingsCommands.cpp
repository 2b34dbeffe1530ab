#include <QAbstractItemView>

#include <folvane/HostServices.h>

#include "faults/Trial.h"
#include "transfersettings/SettingsFixture.h"

namespace folvane::test {
namespace {

class TransfersSettled : public CommandIn<SettingsTest> {
 public:
  void Work(Trial& trial) override {
    WithWindow(u"FrmTransferSettings"_s, [&](QWidget& window) {
      Press(window, Qt::Key_G, Qt::ControlModifier);  // takes what is suggested
      trial.Try([&] { Press(window, Qt::Key_S, Qt::ControlModifier); },
                [&] { return Find(window, u"CmdSave"_s).isEnabled(); });
    });
    Services().editTransferSettings(trial.Connected(), u"TransSet"_s);
  }
};

}  // namespace

std::vector<CommandRow> SettingsCommands() {
  return {Row<TransfersSettled>("save the settings of transfers", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
