#include "host/tour/FlowWork.h"

#include <QApplication>
#include <QListWidget>
#include <QTableView>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kPassing = u"frmPassFile"_s, kRoute = u"frmRouteEdit"_s, kReports = u"frmReportList"_s,
              kPreview = u"ReportPreview"_s;
constexpr int kOk = 1;

// Without a window system the window under one that has been closed is not always made active again.
Tour::Condition OnTop(const QString& window) {
  return [window] { return VisibleWindow(window) && QApplication::activeModalWidget() == VisibleWindow(window); };
}

void PlanOk(Tour& tour, const QString& what) {
  tour.Step(
      what, [] { return AnswerKey(kOk) != nullptr; }, [] { hands::Click(*AnswerKey(kOk)); });
}

// The status of the sheet that the window of circulation stands on.
QString Status() { return In<QTableView>(kPassing, u"DgFile"_s).currentIndex().siblingAtColumn(3).data().toString(); }

void ExpectStatus(const QString& status) { Expect(Status() == status, u"the sheet is "_s + Status()); }

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

void PlanSending(Tour& tour) {
  tour.Step(u"send a document into circulation"_s, OnTop(kBrowser), [] {
    hands::ClickItem(List(), List().model()->index(0, 0));
    ChooseEntry(kBrowser, u"mnu_Manager2_PassRead"_s);
  });
  PlanOk(tour, u"yes, into circulation"_s);
  PlanOk(tour, u"yes, look at it there"_s);
}

void PlanRoute(Tour& tour) {
  tour.Step(u"make its route"_s, OnTop(kPassing), [] {
    ExpectStatus(u"未传阅"_s);
    ChooseEntry(kPassing, u"mnuEidtFlow"_s);
  });
  tour.Step(u"two nodes with a member each"_s, Shown(kRoute), [&tour] {
    AddMember(0);
    AddMember(1);
    tour.Picture(Window(kRoute), u"route"_s);
    hands::Click(In<QWidget>(kRoute, u"CmdOK"_s));
  });
  tour.Step(u"start it"_s, OnTop(kPassing), [] { ChooseEntry(kPassing, u"mnuStart"_s); });
  PlanOk(tour, u"yes, start"_s);
  PlanOk(tour, u"yes, with a detail for each node"_s);
  tour.Step(u"the document is on its way"_s, OnTop(kPassing), [&tour] {
    ExpectStatus(u"传阅中"_s);
    tour.Picture(Window(kPassing), u"circulation"_s);
    ChooseEntry(kPassing, u"mnuNextFlow"_s);
  });
  PlanOk(tour, u"yes, to the second node"_s);
  tour.Step(u"on to the end"_s, OnTop(kPassing), [] { ChooseEntry(kPassing, u"mnuNextFlow"_s); });
  PlanOk(tour, u"yes, further"_s);
  PlanOk(tour, u"the route is at its end"_s);
}

void PlanSheet(Tour& tour) {
  tour.Step(u"print its sheet"_s, OnTop(kPassing), [&tour] {
    ExpectStatus(u"已完成"_s);
    tour.Picture(Window(kPassing), u"circulation-ended"_s);
    ChooseEntry(kPassing, u"mnuPrint"_s);
  });
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
  tour.Step(u"back to the list"_s, OnTop(kPassing), [] { Window(kPassing).close(); });
}

}  // namespace

void PlanFlow(Tour& tour) {
  PlanRegister(tour);
  PlanSending(tour);
  PlanRoute(tour);
  PlanSheet(tour);
}

}  // namespace folvane::host
