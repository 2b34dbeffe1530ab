#include "host/tour/Walk.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QToolBar>
#include <memory>

#include "host/Appearance.h"
#include "host/Entries.h"
#include "host/tour/ArchiveWork.h"
#include "host/tour/DesignerWork.h"
#include "host/tour/ExchangeWork.h"
#include "host/tour/FlowWork.h"
#include "host/tour/Hands.h"
#include "host/tour/OriginalsWork.h"
#include "host/tour/Sights.h"
#include "host/tour/Work.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr QSize kBrowserSize(1180, 720);
constexpr int kImageRole = Qt::UserRole + 1;

QAction& ToolKey(const QString& key) {
  auto* action = In<QToolBar>(kBrowser, u"tlb"_s).findChild<QAction*>(key);
  Expect(action, u"no key "_s + key);
  return *action;
}
QString Key(const QModelIndex& node) { return node.data(Qt::UserRole).toString(); }

QModelIndex FirstNode(const QModelIndex& parent, const std::function<bool(const QModelIndex&)>& wanted) {
  const QAbstractItemModel& model = *Tree().model();
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex node = model.index(row, 0, parent);
    if (wanted(node)) return node;
    if (const QModelIndex below = FirstNode(node, wanted); below.isValid()) return below;
  }
  return {};
}

QModelIndex NodeOf(const QString& what, const std::function<bool(const QModelIndex&)>& wanted) {
  const QModelIndex node = FirstNode({}, wanted);
  Expect(node.isValid(), u"no node for "_s + what);
  return node;
}

QModelIndex YearNode(const QString& table) {
  return NodeOf(u"a year of "_s + table, [&](const QModelIndex& node) {
    return node.data(kImageRole).toString() == "Cent"_L1 && Key(node).startsWith(table + u'-');
  });
}

// Logs on as the n-th user of the list and opens the browser.
void PlanLogOn(Tour& tour, int user, const QString& picture) {
  tour.Step(u"log on as user %1 of the list"_s.arg(user + 1), Shown(kLogOn), [&tour, user, picture] {
    auto& users = In<QComboBox>(kLogOn, u"CboUser"_s);
    Expect(users.count() > user, u"the list has %1 users"_s.arg(users.count()));
    hands::Choose(users, user);
    tour.Picture(Window(kLogOn), picture);
    hands::Click(In<QWidget>(kLogOn, u"CmdOK"_s));
  });
}

void PlanFileOpen(Tour& tour) {
  tour.Step(u"open 文件登记"_s, Shown(kStart), [] { hands::Click(In<QWidget>(kStart, u"FileOpen"_s)); });
  tour.Step(u"draw the browser to the size of a desk's screen"_s, Shown(kBrowser),
            [] { Window(kBrowser).resize(kBrowserSize); });
}

void PlanLogOnAgain(Tour& tour) {
  tour.Step(u"close the browser"_s, Shown(kBrowser), [] { Window(kBrowser).close(); });
  tour.Step(u"log on as another user"_s, Shown(kStart), [] { hands::Click(In<QWidget>(kStart, u"CmdLogOn"_s)); });
}

// Remembers how many records there are for the administrator.
void PlanPaging(Tour& tour, const std::shared_ptr<int>& all) {
  tour.Step(u"the browser shows this year's records"_s, Shown(kBrowser), [&tour] {
    const auto [position, count] = PositionAndCount();
    Expect(position == 1, Position());
    Expect(count > kPage && Rows() == kPage, u"%1 rows, and %2"_s.arg(Rows()).arg(Position()));
    tour.Picture(Window(kBrowser), u"browser"_s);
    tour.Picture(Window(kBrowser), u"browser-scale-2"_s, 2);
  });
  tour.Step(u"refresh: all years"_s, Shown(kBrowser), [all] {
    const int before = PositionAndCount().second;
    Refresh();
    *all = PositionAndCount().second;
    Expect(*all > before, Position());
  });
  tour.Step(u"two pages down"_s, Shown(kBrowser), [&tour] {
    for (int page = 1; page <= 2; ++page) {
      hands::ClickKey(Window(kBrowser), u"tlb"_s, u"NextPage"_s);
      Expect(PositionAndCount().first == 1 + page * kPage, Position());
    }
    tour.Picture(Window(kBrowser), u"two-pages-down"_s);
  });
  tour.Step(u"jump to the last record"_s, Shown(kBrowser), [&tour] {
    Window(kBrowser).findChild<QAction*>(u"mnu_Goto6_LPage"_s)->trigger();
    const auto [position, count] = PositionAndCount();
    Expect(position == count, Position());
    tour.Picture(Window(kBrowser), u"last-record"_s);
  });
}

void PlanSorting(Tour& tour) {
  tour.Step(u"sort by the second column, up and down"_s, Shown(kBrowser), [&tour] {
    const auto caption = [] { return List().model()->headerData(1, Qt::Horizontal).toString(); };
    hands::ClickColumn(List(), 1);
    Expect(caption().startsWith(u"↑"_s), caption());
    hands::ClickColumn(List(), 1);
    Expect(caption().startsWith(u"↓"_s), caption());
    tour.Picture(Window(kBrowser), u"sorted"_s);
  });
  tour.Step(u"choose a year below the table"_s, Shown(kBrowser), [&tour] {
    hands::ClickItem(Tree(), YearNode(Key(Tree().currentIndex())));
    Expect(Rows() > 0, u"the year has records"_s);
    tour.Picture(Window(kBrowser), u"year"_s);
  });
}

void PlanDark(Tour& tour) {
  tour.Step(u"turn the light off"_s, Shown(kBrowser), [] { QApplication::setPalette(DarkPalette()); });
  tour.Step(u"the same in the dark"_s, Shown(kBrowser), [&tour] {
    tour.Picture(Window(kBrowser), u"dark"_s);
    QApplication::setPalette(LightPalette());
  });
}

void PlanLimitedUser(Tour& tour, const std::shared_ptr<int>& all) {
  tour.Step(u"limited rights: some of the records"_s, Shown(kBrowser), [&tour, all] {
    Refresh();
    const int seen = PositionAndCount().second;
    Expect(seen > 0 && seen < *all, u"%1 of %2 records"_s.arg(seen).arg(*all));
    tour.Picture(Window(kBrowser), u"limited-user"_s);
  });
}

void PlanUserWithoutRights(Tour& tour) {
  tour.Step(u"no rights: an empty list, and nothing to add"_s, Shown(kBrowser), [&tour] {
    Expect(Rows() == 0, u"%1 rows"_s.arg(Rows()));
    Expect(Position() == u"当前无记录"_s, Position());
    Expect(!ToolKey(u"NEW"_s).isEnabled(), u"the key NEW is on"_s);
    tour.Picture(Window(kBrowser), u"no-rights"_s);
  });
  tour.Step(u"close the browser"_s, Shown(kBrowser), [] { Window(kBrowser).close(); });
}

// The windows of the other entries.
void PlanOtherEntries(Tour& tour) {
  for (const Entry& entry : Entries()) {
    if (entry.name == "FileOpen"_L1) continue;
    const auto answer = [] {
      QWidget* window = QApplication::activeModalWidget();
      return window && window->isVisible() ? window : nullptr;
    };
    tour.Step(u"open "_s + entry.title, Shown(kStart), [entry] { hands::Click(In<QWidget>(kStart, entry.name)); });
    tour.Step(u"%1 answers"_s.arg(entry.title), answer, [&tour, entry, answer] {
      tour.Picture(*answer(), entry.name);
      answer()->close();
    });
  }
}

}  // namespace

void PlanWalk(Tour& tour) {
  const auto all = std::make_shared<int>(0);
  PlanLogOn(tour, 0, u"log-on"_s);
  tour.Step(u"the six entries"_s, Shown(kStart), [&tour] { tour.Picture(Window(kStart), u"start"_s); });
  PlanFileOpen(tour);
  PlanPaging(tour, all);
  PlanSorting(tour);
  PlanDark(tour);
  PlanWork(tour);
  PlanFlow(tour);
  PlanOriginals(tour);
  PlanArchiving(tour);
  PlanSaving(tour);
  PlanLogOnAgain(tour);
  PlanSecondDatabase(tour);
  PlanLogOn(tour, 0, u"log-on-second"_s);
  PlanFileOpen(tour);
  PlanTaking(tour);
  PlanLogOnAgain(tour);
  PlanFirstDatabase(tour);
  PlanLogOn(tour, 2, u"log-on-limited"_s);
  PlanFileOpen(tour);
  PlanLimitedUser(tour, all);
  PlanLogOnAgain(tour);
  PlanLogOn(tour, 3, u"log-on-without-rights"_s);
  PlanFileOpen(tour);
  PlanUserWithoutRights(tour);
  PlanOtherEntries(tour);
  tour.Step(u"log on to another database"_s, Shown(kStart), [] { hands::Click(In<QWidget>(kStart, u"CmdLogOn"_s)); });
  PlanOwnTable(tour);
  tour.Step(u"close the browser"_s, Shown(kBrowser), [] { Window(kBrowser).close(); });
  tour.Step(u"leave"_s, Shown(kStart), [] { hands::Click(In<QWidget>(kStart, u"CmdExit"_s)); });
}

}  // namespace folvane::host
