#include "host/tour/Walk.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QToolBar>
#include <memory>

#include "host/Appearance.h"
#include "host/Entries.h"
#include "host/tour/Hands.h"
#include "host/tour/Sights.h"
#include "host/tour/Work.h"

namespace folvane::host {
namespace {

const QString kLogOn = QStringLiteral("LogOnDialog"), kStart = QStringLiteral("StartWindow");
constexpr QSize kBrowserSize(1180, 720);
constexpr int kImageRole = Qt::UserRole + 1;

QAction& ToolKey(const QString& key) {
  auto* action = In<QToolBar>(kBrowser, QStringLiteral("tlb")).findChild<QAction*>(key);
  Expect(action, QStringLiteral("no key ") + key);
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
  Expect(node.isValid(), QStringLiteral("no node for ") + what);
  return node;
}

QModelIndex YearNode(const QString& table) {
  return NodeOf(QStringLiteral("a year of ") + table, [&](const QModelIndex& node) {
    return node.data(kImageRole).toString() == QLatin1String("Cent") && Key(node).startsWith(table + QLatin1Char('-'));
  });
}

// Logs on as the n-th user of the list and opens the browser.
void PlanLogOn(Tour& tour, int user, const QString& picture) {
  tour.Step(QStringLiteral("log on as user %1 of the list").arg(user + 1), Shown(kLogOn), [&tour, user, picture] {
    auto& users = In<QComboBox>(kLogOn, QStringLiteral("CboUser"));
    Expect(users.count() > user, QStringLiteral("the list has %1 users").arg(users.count()));
    hands::Choose(users, user);
    tour.Picture(Window(kLogOn), picture);
    hands::Click(In<QWidget>(kLogOn, QStringLiteral("CmdOK")));
  });
}

void PlanFileOpen(Tour& tour) {
  tour.Step(QStringLiteral("open 文件登记"), Shown(kStart),
            [] { hands::Click(In<QWidget>(kStart, QStringLiteral("FileOpen"))); });
  tour.Step(QStringLiteral("draw the browser to the size of a desk's screen"), Shown(kBrowser),
            [] { Window(kBrowser).resize(kBrowserSize); });
}

void PlanLogOnAgain(Tour& tour) {
  tour.Step(QStringLiteral("close the browser"), Shown(kBrowser), [] { Window(kBrowser).close(); });
  tour.Step(QStringLiteral("log on as another user"), Shown(kStart),
            [] { hands::Click(In<QWidget>(kStart, QStringLiteral("CmdLogOn"))); });
}

// Remembers how many records there are for the administrator.
void PlanPaging(Tour& tour, const std::shared_ptr<int>& all) {
  tour.Step(QStringLiteral("the browser shows this year's records"), Shown(kBrowser), [&tour] {
    const auto [position, count] = PositionAndCount();
    Expect(position == 1, Position());
    Expect(count > kPage && Rows() == kPage, QStringLiteral("%1 rows, and %2").arg(Rows()).arg(Position()));
    tour.Picture(Window(kBrowser), QStringLiteral("browser"));
    tour.Picture(Window(kBrowser), QStringLiteral("browser-scale-2"), 2);
  });
  tour.Step(QStringLiteral("refresh: all years"), Shown(kBrowser), [all] {
    const int before = PositionAndCount().second;
    Refresh();
    *all = PositionAndCount().second;
    Expect(*all > before, Position());
  });
  tour.Step(QStringLiteral("two pages down"), Shown(kBrowser), [&tour] {
    for (int page = 1; page <= 2; ++page) {
      hands::ClickKey(Window(kBrowser), QStringLiteral("tlb"), QStringLiteral("NextPage"));
      Expect(PositionAndCount().first == 1 + page * kPage, Position());
    }
    tour.Picture(Window(kBrowser), QStringLiteral("two-pages-down"));
  });
  tour.Step(QStringLiteral("jump to the last record"), Shown(kBrowser), [&tour] {
    Window(kBrowser).findChild<QAction*>(QStringLiteral("mnu_Goto6_LPage"))->trigger();
    const auto [position, count] = PositionAndCount();
    Expect(position == count, Position());
    tour.Picture(Window(kBrowser), QStringLiteral("last-record"));
  });
}

void PlanSorting(Tour& tour) {
  tour.Step(QStringLiteral("sort by the second column, up and down"), Shown(kBrowser), [&tour] {
    const auto caption = [] { return List().model()->headerData(1, Qt::Horizontal).toString(); };
    hands::ClickColumn(List(), 1);
    Expect(caption().startsWith(QStringLiteral("↑")), caption());
    hands::ClickColumn(List(), 1);
    Expect(caption().startsWith(QStringLiteral("↓")), caption());
    tour.Picture(Window(kBrowser), QStringLiteral("sorted"));
  });
  tour.Step(QStringLiteral("choose a year below the table"), Shown(kBrowser), [&tour] {
    hands::ClickItem(Tree(), YearNode(Key(Tree().currentIndex())));
    Expect(Rows() > 0, QStringLiteral("the year has records"));
    tour.Picture(Window(kBrowser), QStringLiteral("year"));
  });
}

void PlanDark(Tour& tour) {
  tour.Step(QStringLiteral("turn the light off"), Shown(kBrowser), [] { QApplication::setPalette(DarkPalette()); });
  tour.Step(QStringLiteral("the same in the dark"), Shown(kBrowser), [&tour] {
    tour.Picture(Window(kBrowser), QStringLiteral("dark"));
    QApplication::setPalette(LightPalette());
  });
}

void PlanLimitedUser(Tour& tour, const std::shared_ptr<int>& all) {
  tour.Step(QStringLiteral("limited rights: some of the records"), Shown(kBrowser), [&tour, all] {
    Refresh();
    const int seen = PositionAndCount().second;
    Expect(seen > 0 && seen < *all, QStringLiteral("%1 of %2 records").arg(seen).arg(*all));
    tour.Picture(Window(kBrowser), QStringLiteral("limited-user"));
  });
}

void PlanUserWithoutRights(Tour& tour) {
  tour.Step(QStringLiteral("no rights: an empty list, and nothing to add"), Shown(kBrowser), [&tour] {
    Expect(Rows() == 0, QStringLiteral("%1 rows").arg(Rows()));
    Expect(Position() == QStringLiteral("当前无记录"), Position());
    Expect(!ToolKey(QStringLiteral("NEW")).isEnabled(), QStringLiteral("the key NEW is on"));
    tour.Picture(Window(kBrowser), QStringLiteral("no-rights"));
  });
  tour.Step(QStringLiteral("close the browser"), Shown(kBrowser), [] { Window(kBrowser).close(); });
}

// The other entries: the window of each that the library has; the cards of the rest are out of use.
void PlanOtherEntries(Tour& tour) {
  for (const Entry& entry : Entries()) {
    if (entry.name == QLatin1String("FileOpen")) continue;
    if (!entry.provided) {
      tour.Step(QStringLiteral("%1 is still to come").arg(entry.title), Shown(kStart), [entry] {
        Expect(!In<QWidget>(kStart, entry.name).isEnabled(), QStringLiteral("the card %1 is on").arg(entry.name));
      });
      continue;
    }
    const auto answer = [] {
      QWidget* window = QApplication::activeModalWidget();
      return window && window->isVisible() ? window : nullptr;
    };
    tour.Step(QStringLiteral("open ") + entry.title, Shown(kStart),
              [entry] { hands::Click(In<QWidget>(kStart, entry.name)); });
    tour.Step(QStringLiteral("%1 answers").arg(entry.title), answer, [&tour, entry, answer] {
      tour.Picture(*answer(), entry.name);
      answer()->close();
    });
  }
}

}  // namespace

void PlanWalk(Tour& tour) {
  const auto all = std::make_shared<int>(0);
  PlanLogOn(tour, 0, QStringLiteral("log-on"));
  tour.Step(QStringLiteral("the six entries"), Shown(kStart),
            [&tour] { tour.Picture(Window(kStart), QStringLiteral("start")); });
  PlanFileOpen(tour);
  PlanPaging(tour, all);
  PlanSorting(tour);
  PlanDark(tour);
  PlanWork(tour);
  PlanLogOnAgain(tour);
  PlanLogOn(tour, 2, QStringLiteral("log-on-limited"));
  PlanFileOpen(tour);
  PlanLimitedUser(tour, all);
  PlanLogOnAgain(tour);
  PlanLogOn(tour, 3, QStringLiteral("log-on-without-rights"));
  PlanFileOpen(tour);
  PlanUserWithoutRights(tour);
  PlanOtherEntries(tour);
  tour.Step(QStringLiteral("leave"), Shown(kStart),
            [] { hands::Click(In<QWidget>(kStart, QStringLiteral("CmdExit"))); });
}

}  // namespace folvane::host
