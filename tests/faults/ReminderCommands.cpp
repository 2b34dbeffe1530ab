#include "faults/Trial.h"
#include "flows/FlowWindowFixture.h"

namespace folvane::test {
namespace {

/// Sheets of handling with a line and two reminders each, in the window of reminders or that of a flow.
class InReminders : public CommandIn<FlowWindowTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddHeads(Handling(), 2);
    AddDetail(Handling(), K(2), 1, u"办公室"_s, u"0"_s);
    for (const int line : {2, 3}) AddDetail(Handling(), K(2), line, u"办公室"_s, u"1"_s);
    design_->Run(u"update Transact_Details set Quantity=1, Back_Quantity=0"_s);
    design_->Run(u"update Lwdj set HandleState='未处理'"_s);
    hasten_ = u"1"_s;
  }

 protected:
  /// Opens the dialog of a reminder by `open`, names the unit and saves.
  void SaveReminder(Trial& trial, const WindowSteps& open) {
    Open(Handling().window, [&](QWidget& window) {
      trial.TryFromArm([&] {
        WithWindow(Handling().detailDialog, [&](QWidget& dialog) {
          Retype(Find<QWidget>(dialog, u"CboUnit"_s), u"财务科"_s);
          trial.Arm();
          Click(Find<QWidget>(dialog, u"cmdSave"_s));
        });
        open(window);
      });
    });
  }
};

class ReminderAdded : public InReminders {
 public:
  void Work(Trial& trial) override {
    SaveReminder(trial, [](QWidget& window) {
      Click(*Details(window).viewport());
      Key(window, u"NEW"_s).trigger();
    });
  }
};

class ReminderChanged : public InReminders {
 public:
  void Work(Trial& trial) override {
    SaveReminder(trial,
                 [](QWidget& window) { DoubleClickItem(Details(window), Details(window).model()->index(0, 2)); });
  }
};

class ReminderDeleted : public InReminders {
 public:
  void Work(Trial& trial) override {
    Open(Handling().window, [&](QWidget& window) {
      trial.TryFromArm([&] {
        ClickGrid(Details(window), 0);
        trial.Arm();
        Key(window, u"DELETE"_s).trigger();
      });
    });
  }
};

/// Closes the window of a flow over three sheets that are done, which writes the states of their records.
class FlowClosed : public CommandIn<FlowWindowTest> {
 public:
  explicit FlowClosed(const Flow* flow) : flow_(*flow) {}
  void Begin() override {
    CommandIn::Begin();
    AddHeads(flow_, 3);
    design_->Run(u"update %1 set %2='%3'"_s.arg(flow_.headTable, flow_.statusColumn, flow_.done));
  }
  void Work(Trial& trial) override {
    Open(flow_.window, [&](QWidget& window) { trial.Try([&] { window.close(); }); });
  }

 private:
  const Flow& flow_;
};

}  // namespace

std::vector<CommandRow> ReminderCommands() {
  std::vector<CommandRow> rows{Row<ReminderAdded>("add a reminder", Keeps::AllOrNothing, 1),
                               Row<ReminderChanged>("change a reminder", Keeps::AllOrNothing, 1),
                               Row<ReminderDeleted>("delete a reminder", Keeps::AllOrNothing, 1)};
  for (const Flow* flow : {&Distribution(), &Circulation(), &Handling()}) {
    rows.push_back(Row<FlowClosed>("close the window of " + flow->headTable.toStdString(), Keeps::EachRow, 1, flow));
    rows.back().isTold = false;
  }
  return rows;
}

}  // namespace folvane::test
