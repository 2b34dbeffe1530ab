#include "host/tour/FlowWork.h"

#include <QApplication>
#include <QListWidget>
#include <QScrollBar>
#include <QTableView>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kRoute = u"frmRouteEdit"_s, kReports = u"frmReportList"_s, kPreview = u"ReportPreview"_s,
              kProgress = u"frmNotion"_s;
constexpr int kOk = 1;
constexpr int kStatusColumn = 3;

/// A flow as the tour goes through it.
struct Way {
  QString name;           ///< of its pictures
  QString entry, column;  ///< of the browser: what sends a document there, and where its state is seen
  QString window, detailDialog;
  QString idle, done;                     ///< the status of a sheet without a detail, and with one
  QString startEntry = {}, running = {};  ///< of its route
};

const Way kDistribution{u"distribution"_s,  u"mnu_Manager1_Distribute"_s,
                        u"DisPenseState"_s, u"frmDistributeFile"_s,
                        u"frmDistrEdit"_s,  u"未分发"_s,
                        u"已分发"_s};
const Way kCirculation{u"circulation"_s, u"mnu_Manager2_PassRead"_s,
                       u"ReadState"_s,   u"frmPassFile"_s,
                       u"frmPassEdit"_s, u"未传阅"_s,
                       u"已传阅"_s,      u"mnuStart"_s,
                       u"传阅中"_s};
const Way kHandling{u"handling"_s,    u"mnu_Manager3_Transact"_s, u"HandleState"_s,
                    u"frmTranSact"_s, u"frmTranEdit"_s,           u"未处理"_s,
                    u"已处理"_s,      u"mnuStartFlow"_s,          u"处理中"_s};

void PlanOk(Tour& tour, const QString& what) {
  tour.Step(
      what, [] { return AnswerKey(kOk) != nullptr; }, [] { hands::Click(*AnswerKey(kOk)); });
}

// The status of the sheet that the window of a flow stands on.
void ExpectStatus(const Way& way, const QString& status) {
  const QString shown =
      In<QTableView>(way.window, u"DgFile"_s).currentIndex().siblingAtColumn(kStatusColumn).data().toString();
  Expect(shown == status, u"the sheet is "_s + shown);
}

void AddMember(int person) {
  hands::Click(In<QWidget>(kRoute, u"CmdAddNode"_s));
  auto& people = In<QListWidget>(kRoute, u"lstPeople"_s);
  Expect(people.count() > person, u"there are %1 people"_s.arg(people.count()));
  hands::ClickItem(people, people.model()->index(person, 0));
  hands::Click(In<QWidget>(kRoute, u"CmdJoin"_s));
}

void PlanRegister(Tour& tour) {
  tour.Step(u"print the documents of the page"_s, Shown(kBrowser), [] {
    List().selectAll();
    ChooseEntry(kBrowser, u"mnu_Report_List(1)"_s);
  });
  tour.Step(u"look at the register"_s, Shown(kPreview), [&tour] {
    tour.Picture(Window(kPreview), u"register"_s);
    Window(kPreview).close();
  });
}

void PlanSending(Tour& tour, const Way& way) {
  tour.Step(u"send a document into "_s + way.name, OnTop(kBrowser), [way] {
    hands::ClickItem(List(), List().model()->index(0, 0));
    ChooseEntry(kBrowser, way.entry);
  });
  PlanOk(tour, u"yes, into "_s + way.name);
  PlanOk(tour, u"yes, look at it there"_s);
}

void PlanRoute(Tour& tour, const Way& way) {
  tour.Step(u"make its route"_s, OnTop(way.window), [way] {
    ExpectStatus(way, way.idle);
    ChooseEntry(way.window, u"mnuEidtFlow"_s);
  });
  tour.Step(u"two nodes with a member each"_s, Shown(kRoute), [&tour, way] {
    AddMember(0);
    AddMember(1);
    tour.Picture(Window(kRoute), way.name + u"-route"_s);
    hands::Click(In<QWidget>(kRoute, u"CmdOK"_s));
  });
  tour.Step(u"start it"_s, OnTop(way.window), [way] { ChooseEntry(way.window, way.startEntry); });
  PlanOk(tour, u"yes, start"_s);
  PlanOk(tour, u"yes, with a detail for each node"_s);
  tour.Step(u"the document is on its way"_s, OnTop(way.window), [&tour, way] {
    ExpectStatus(way, way.running);
    tour.Picture(Window(way.window), way.name);
    ChooseEntry(way.window, u"mnuAllNotion"_s);
  });
  tour.Step(u"look who has it now"_s, Shown(kProgress), [&tour, way] {
    tour.Picture(Window(kProgress), way.name + u"-progress"_s);
    hands::Click(In<QWidget>(kProgress, u"CmdOK"_s));
  });
  tour.Step(u"on to the second node"_s, OnTop(way.window), [way] { ChooseEntry(way.window, u"mnuNextFlow"_s); });
  PlanOk(tour, u"yes, to the second node"_s);
  tour.Step(u"on to the end"_s, OnTop(way.window), [way] { ChooseEntry(way.window, u"mnuNextFlow"_s); });
  PlanOk(tour, u"yes, further"_s);
  PlanOk(tour, u"the route is at its end"_s);
  tour.Step(u"it has ended"_s, OnTop(way.window), [&tour, way] {
    ExpectStatus(way, u"已完成"_s);
    tour.Picture(Window(way.window), way.name + u"-ended"_s);
  });
}

void PlanSheet(Tour& tour, const Way& way) {
  tour.Step(u"print its sheet"_s, OnTop(way.window), [way] { ChooseEntry(way.window, u"mnuPrint"_s); });
  tour.Step(u"choose the report"_s, Shown(kReports), [&tour] {
    auto& reports = In<QAbstractItemView>(kReports, u"lstReportName"_s);
    hands::ClickItem(reports, reports.model()->index(0, 0));
    tour.Picture(Window(kReports), u"reports"_s);
    hands::Click(In<QWidget>(kReports, u"CmdOK"_s));
  });
  tour.Step(u"look at the sheet"_s, Shown(kPreview), [&tour] {
    tour.Picture(Window(kPreview), u"sheet"_s);
    Window(kPreview).close();
  });
}

// A detail is what the closing of the window tells of in the record's own state.
void PlanDetail(Tour& tour, const Way& way) {
  tour.Step(u"add a unit to the sheet"_s, OnTop(way.window), [way] {
    hands::Click(*In<QTableView>(way.window, u"DgDetails"_s).viewport());
    ChooseEntry(way.window, u"mnuAddNew"_s);
  });
  tour.Step(u"name it"_s, Shown(way.detailDialog), [&tour, way] {
    hands::Retype(In<QWidget>(way.detailDialog, u"CboUnit"_s), u"办公室"_s);
    tour.Picture(Window(way.detailDialog), way.name + u"-detail"_s);
    hands::Click(In<QWidget>(way.detailDialog, u"cmdSave"_s));
  });
  tour.Step(u"back to the list"_s, OnTop(way.window), [&tour, way] {
    ExpectStatus(way, way.done);
    tour.Picture(Window(way.window), way.name + u"-done"_s);
    Window(way.window).close();
  });
  tour.Step(u"the list tells how the document stands"_s, OnTop(kBrowser), [way] {
    Refresh();
    hands::ClickItem(List(), List().model()->index(0, 0));
    Expect(Cell(way.column) == way.done, Cell(way.column));
  });
}

}  // namespace

void PlanFlow(Tour& tour) {
  PlanRegister(tour);
  PlanSending(tour, kDistribution);
  PlanDetail(tour, kDistribution);
  PlanSending(tour, kCirculation);
  PlanRoute(tour, kCirculation);
  PlanSheet(tour, kCirculation);
  PlanDetail(tour, kCirculation);
  PlanSending(tour, kHandling);
  PlanRoute(tour, kHandling);
  PlanDetail(tour, kHandling);
  tour.Step(u"all three ways in the list"_s, OnTop(kBrowser), [&tour] {
    List().horizontalScrollBar()->setValue(List().horizontalScrollBar()->maximum());
    tour.Picture(Window(kBrowser), u"states"_s);
    List().horizontalScrollBar()->setValue(0);
  });
}

}  // namespace folvane::host
