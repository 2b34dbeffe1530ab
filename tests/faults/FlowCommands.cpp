#include <QTableView>

#include "data/Recordset.h"
#include "faults/Trial.h"
#include "flows/FlowWindowFixture.h"
#include "flows/RouteDialogs.h"
#include "flows/TransferIntoFlow.h"

namespace folvane::test {
namespace {

/// Two sheets of a flow, the first of which has two lines and a route.
class InFlowWindow : public CommandIn<FlowWindowTest> {
 public:
  explicit InFlowWindow(const Flow* flow) : flow_(*flow) {}
  void Begin() override {
    CommandIn::Begin();
    AddHeads(flow_, 2);
    for (const int line : {1, 2}) AddDetail(flow_, K(2), line, u"办公室"_s, u"0"_s);
    if (flow_.hasQuantities) design_->Run(u"update %1 set Quantity=1, Back_Quantity=0"_s.arg(flow_.detailTable));
    design_->Run(u"update Lwdj set %1='%2'"_s.arg(flow_.recordColumn, flow_.idle));  // as the closed window leaves it
    AddRoute(K(2), {u"1|甲|单人审核|2"_s, u"2|乙|单人审核|0"_s});
  }

 protected:
  void InWindow(const WindowSteps& steps) { Open(flow_.window, steps); }
  /// Tries what arms the trial by itself.
  void TryInWindow(Trial& trial, const WindowSteps& act) {
    InWindow([&](QWidget& window) { trial.TryFromArm([&] { act(window); }); });
  }
  /// Fills a dialog in and saves it, from where the statements count.
  static void Save(Trial& trial, const QString& dialog, const QString& box, const QString& text) {
    WithWindow(dialog, [&trial, box, text](QWidget& shown) {
      Retype(Find<QWidget>(shown, box), text);
      trial.Arm();
      Click(Find<QWidget>(shown, u"cmdSave"_s));
    });
  }
  void TakeStep(Trial& trial, const QString& command) {
    TryInWindow(trial, [&](QWidget& window) {
      trial.Arm();
      Command(window, command).trigger();
    });
  }
  const Flow& flow_;
};

class RouteStarted : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override { TakeStep(trial, u"StartRead"_s); }
};

class RouteGoneOn : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Begin() override {
    InFlowWindow::Begin();
    Database().Native(u"update Curr_Flow set CurrNode='%1'"_s.arg(1));
    design_->Run(u"update %1 set %2='%3'"_s.arg(flow_.headTable, flow_.statusColumn, flow_.running));
  }
  void Work(Trial& trial) override { TakeStep(trial, u"NextRead"_s); }
};

class LineAdded : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Begin() override {
    InFlowWindow::Begin();
    design_->Run(u"delete from "_s + flow_.detailTable);
  }
  void Work(Trial& trial) override {
    TryInWindow(trial, [&](QWidget& window) {
      Click(*Details(window).viewport());
      Save(trial, flow_.detailDialog, u"CboUnit"_s, u"财务科"_s);
      Key(window, u"NEW"_s).trigger();
    });
  }
};

class LineChanged : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    TryInWindow(trial, [&](QWidget& window) {
      Save(trial, flow_.detailDialog, u"CboUnit"_s, u"财务科"_s);
      DoubleClickItem(Details(window), Details(window).model()->index(0, 2));
    });
  }
};

class LineDeleted : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    TryInWindow(trial, [&](QWidget& window) {
      ClickGrid(Details(window), 0);
      trial.Arm();
      Key(window, u"DELETE"_s).trigger();
    });
  }
};

class SheetChanged : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    TryInWindow(trial, [&](QWidget& window) {
      ClickGrid(Heads(window), 0);
      Save(trial, flow_.headDialog, u"TxtNote"_s, u"急"_s);
      Key(window, u"MODIFY"_s).trigger();
    });
  }
};

class SheetDeleted : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    TryInWindow(trial, [&](QWidget& window) {
      ClickGrid(Heads(window), 0);
      trial.Arm();
      Key(window, u"DELETE"_s).trigger();
    });
  }
};

class SheetsDeleted : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    InWindow([&](QWidget& window) { trial.Try([&] { Command(window, u"DelAll"_s).trigger(); }); });
  }
};

class RouteEdited : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Work(Trial& trial) override {
    WithWindow(u"frmRouteEdit"_s, [&](QWidget& window) {
      auto& nodes = Find<QTableView>(window, u"DgNodes"_s);
      nodes.model()->setData(nodes.model()->index(1, 1), u"丁"_s);
      trial.Try([&] { Click(Find<QWidget>(window, u"CmdOK"_s)); },
                [&] { return nodes.model()->index(1, 1).data().toString() == u"丁"_s; });
    });
    EditRoute(flow_, K(2));
  }
};

class RecordIntoFlow : public InFlowWindow {
 public:
  using InFlowWindow::InFlowWindow;
  void Begin() override {
    InFlowWindow::Begin();
    AddRecord(u"99"_s, u"关于召开会议的通知"_s);
  }
  void Work(Trial& trial) override {
    Recordset record;
    record.Open(u"Select * from Lwdj Where ArchiveID='99'"_s, trial.Connected());
    trial.Answer({1, 2});
    trial.Try([&] { TransferIntoFlow(record.Fields(), u"Lwdj"_s, flow_.headTable); });
  }
};

}  // namespace

std::vector<CommandRow> FlowCommands() {
  std::vector<CommandRow> rows;
  for (const Flow* flow : {&Distribution(), &Circulation(), &Handling()}) {
    const std::string name = flow->isHandling ? "handling" : flow->HasRoute() ? "circulation" : "distribution";
    rows.push_back(Row<RecordIntoFlow>("take a record into " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<LineAdded>("add a line of " + name, Keeps::Steps, 2, flow));
    rows.push_back(Row<LineChanged>("change a line of " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<LineDeleted>("delete a line of " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<SheetChanged>("change a sheet of " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<SheetDeleted>("delete a sheet of " + name, Keeps::EachRow, 2, flow));
    if (!flow->HasRoute()) continue;
    rows.push_back(Row<SheetsDeleted>("delete all sheets of " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<RouteStarted>("start the route of " + name, Keeps::AllOrNothing, 1, flow));
    rows.push_back(Row<RouteGoneOn>("go on in the route of " + name, Keeps::AllOrNothing, 1, flow));
  }
  rows.push_back(Row<RouteEdited>("write a route", Keeps::AllOrNothing, 1, &Circulation()));
  return rows;
}

}  // namespace folvane::test
