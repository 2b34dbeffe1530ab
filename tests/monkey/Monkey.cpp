#include "monkey/Monkey.h"

#include <QApplication>
#include <QDialog>
#include <QProgressDialog>
#include <QTest>
#include <QThread>
#include <QWindow>
#include <QtTest/qtestkeyboard.h>
#include <algorithm>

#include "monkey/Deeds.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kShortestStay = 50, kLongestStay = 800;
constexpr int kPatience = 30;  // attempts to close a window as a user would

/// Qt's own dialogs, which lead to printers and to files anywhere.
bool LeadsOutside(const QWidget& window) {
  return window.inherits("QAbstractPrintDialog") || window.inherits("QFileDialog");
}

QByteArray VisitedName(const QWidget& window) {
  const QString name = window.objectName();
  return name.isEmpty() ? QByteArray(window.metaObject()->className()) : name.toUtf8();
}

/// In the order of their names: the toolkit's own differs from run to run.
std::vector<QWidget*> ShownWindows() {
  std::vector<QWidget*> windows;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->windowHandle()) windows.push_back(window);
  std::stable_sort(windows.begin(), windows.end(),
                   [](QWidget* one, QWidget* other) { return VisitedName(*one) < VisitedName(*other); });
  return windows;
}

/// Mostly the one that takes input; now and then one beside or under it.
QWidget* AnyWindow(Dice& dice) {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  QWidget* modal = QApplication::activeModalWidget();
  if (modal && !dice.OneIn(6)) return modal;
  const std::vector<QWidget*> windows = ShownWindows();
  return windows.empty() ? nullptr : dice.AnyOf(windows);
}

}  // namespace

Monkey::Monkey(quint64 seed, int events, std::function<void(int)> onStep)
    : seed_(seed), events_(events), onStep_(std::move(onStep)), watchdog_(seed) {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &Monkey::Tick);
}

void Monkey::Run(const std::function<void(quint64)>& open) {
  timer_.start(0);
  for (quint64 visit = 0; step_ < events_; ++visit) {
    Dice dice(seed_, ~visit);
    stay_ = qMin(events_, step_ + dice.Between(kShortestStay, kLongestStay));
    leaving_ = 0;
    watchdog_.Begin(step_, "opening");
    open(quint64(dice.Between(0, 1'000'000)));
    for (QWidget* left : ShownWindows()) left->close();
    ++step_;  // a window that nobody may open takes an event, too
  }
  timer_.stop();
}

// An event that opens a window ends when that is closed: those in between belong to the new window and its loop. What
// only lets other events happen is not disturbed, unless it shows how far it has come.
void Monkey::Tick() {
  timer_.start(0);
  const int loop = QThread::currentThread()->loopLevel();
  if (loop <= acting_ && !qobject_cast<QProgressDialog*>(QApplication::activeModalWidget())) return;
  if (ShownWindows().empty()) return;
  const int outer = std::exchange(acting_, loop);
  step_ < stay_ ? Act() : Leave();
  acting_ = outer;
}

void Monkey::Act() {
  Dice dice(seed_, quint64(++step_));
  onStep_(step_);
  QWidget* window = QApplication::activeModalWidget();
  if (window && LeadsOutside(*window)) {
    watchdog_.Begin(step_, "cancel a dialog of the toolkit");
    ++cancelled_;
    static_cast<QDialog*>(window)->reject();
    return;
  }
  window = AnyWindow(dice);
  if (!window) return;
  ++visits_[VisitedName(*window)];
  const Deed deed = AnyDeed(*window, dice);
  watchdog_.Begin(step_, deed.said);
  deed.doIt();
  watchdog_.Begin(step_, "done");
}

// As a user would; who answers every question with "no, stay" is led out in the end.
void Monkey::Leave() {
  watchdog_.Begin(step_, "leaving");
  ++leaving_;
  QWidget* top = QApplication::activePopupWidget();
  if (!top) top = QApplication::activeModalWidget();
  if (!top) top = ShownWindows().back();
  QWindow* focus = QGuiApplication::focusWindow();
  if (leaving_ % kPatience == 0)
    top->hide();
  else if (leaving_ % 3 == 0 && focus)
    QTest::sendKeyEvent(QTest::Click, focus, Qt::Key_Escape, QString(), Qt::NoModifier);  // ends a drag, too
  else
    top->close();
}

}  // namespace folvane::test
