#include "support/WindowDriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <list>
#include <stdexcept>

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

/// Generous, because the same tests run under the sanitizers on a busy machine.
constexpr int kPatience = 20'000;
constexpr int kPulse = 5;

int drivenByTest = 0;

struct Appointment {
  QString name;
  WindowSteps steps;
  QElapsedTimer waiting;
};

/// The windows that were announced and are still to come. The newest is looked for first: it was announced from inside
/// the steps of an older one.
std::list<Appointment>& Appointments() {
  static std::list<Appointment> appointments;
  return appointments;
}

QWidgetList VisibleWindows() {
  QWidgetList windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) windows << window;
  }
  return windows;
}

QString NameOf(const QWidget& window) {
  return window.objectName().isEmpty() ? QString::fromLatin1(window.metaObject()->className()) : window.objectName();
}

QString NamesOf(const QWidgetList& windows) {
  QStringList names;
  for (const QWidget* window : windows) names << NameOf(*window);
  return names.isEmpty() ? u"none"_s : names.join(u", "_s);
}

/// Ends every nested event loop: hides windows, the innermost first, without asking them.
void HideAll() {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->hide();
  while (QWidget* modal = QApplication::activeModalWidget()) modal->hide();
  for (QWidget* window : VisibleWindows()) window->hide();
}

void FailAndHideAll(const QString& why) {
  ADD_FAILURE() << why.toStdString() << "; shown: " << NamesOf(VisibleWindows()).toStdString();
  HideAll();
}

/// A window under a modal one takes no input yet, nor does one that has not reached the screen.
bool TakesInput(const QWidget& window) {
  const QWidget* const modal = QApplication::activeModalWidget();
  const bool onTop = !modal || modal == &window || QApplication::activePopupWidget() == &window;
  return onTop && window.windowHandle() && window.windowHandle()->isExposed();
}

QWidget* ShownWindow(const QString& name) {
  for (QWidget* window : VisibleWindows()) {
    if (NameOf(*window) == name && TakesInput(*window)) return window;
  }
  return nullptr;
}

void RunSteps(const Appointment& appointment, QWidget& shown) {
  const QPointer<QWidget> window(&shown);
  try {
    appointment.steps(shown);
  } catch (const std::exception& error) {
    FailAndHideAll(u"in the steps of "_s + appointment.name + u": "_s + QString::fromUtf8(error.what()));
    return;
  }
  if (!window || !window->isVisible()) return;
  window->close();
  if (window && window->isVisible()) FailAndHideAll(appointment.name + u" does not close"_s);
}

}  // namespace

/// Lives on a timer, so that it works inside whatever event loop is running.
class WindowDriverListener::Watch : public QObject {
 public:
  Watch() {
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
    timer_.setSingleShot(true);
    timer_.start(kPulse);
    idle_.start();
    qApp->installEventFilter(this);
  }

  void TestEnded() {
    idle_.restart();
    for (const Appointment& missed : Appointments()) {
      ADD_FAILURE() << "the window " << missed.name.toStdString() << " was awaited and never came";
    }
    Appointments().clear();
  }

 private:
  void Look() {
    // Started anew before anything else: a running timer does not fire inside a loop that its own handler has opened.
    timer_.start(kPulse);
    auto& appointments = Appointments();
    for (auto appointment = appointments.rbegin(); appointment != appointments.rend(); ++appointment) {
      QWidget* window = ShownWindow(appointment->name);
      if (!window) continue;
      const Appointment kept = *appointment;
      appointments.erase(std::next(appointment).base());
      Drive(kept, *window);
      return;
    }
    LookAtClock();
  }

  void Drive(const Appointment& appointment, QWidget& window) {
    ++driving_;
    RunSteps(appointment, window);
    --driving_;
    idle_.restart();
  }

  void LookAtClock() {
    auto& appointments = Appointments();
    if (!appointments.empty() && appointments.back().waiting.hasExpired(kPatience)) {
      const QString name = appointments.back().name;
      appointments.clear();
      FailAndHideAll(u"the window "_s + name + u" did not come"_s);
    } else if (drivenByTest > 0) {
      idle_.restart();
    } else if (appointments.empty() && QApplication::activeModalWidget() && idle_.hasExpired(kPatience)) {
      FailAndHideAll(driving_ ? u"the steps wait for a window that nobody drives"_s
                              : u"a window stands open and nobody drives it"_s);
      idle_.restart();
    } else if (!QApplication::activeModalWidget()) {
      idle_.restart();
    }
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Hide && object->isWidgetType()) {
      auto* window = static_cast<QWidget*>(object);
      if (window->isWindow() && window->isModal()) {
        QTimer::singleShot(0, this, [parent = QPointer<QWidget>(window->parentWidget())] { Reactivate(parent); });
      }
    }
    return false;
  }

  static void Reactivate(QWidget* parent) {
    QWidget* next = QApplication::activeModalWidget();
    if (!next && parent && parent->isVisible()) next = parent->window();
    if (next && QApplication::activeWindow() != next) next->activateWindow();
  }

  QTimer timer_;
  QElapsedTimer idle_;
  int driving_ = 0;
};

WindowDriverListener::WindowDriverListener() = default;
WindowDriverListener::~WindowDriverListener() = default;
void WindowDriverListener::OnTestProgramStart(const testing::UnitTest&) { watch_ = std::make_unique<Watch>(); }
void WindowDriverListener::OnTestProgramEnd(const testing::UnitTest&) { watch_.reset(); }
void WindowDriverListener::OnTestEnd(const testing::TestInfo&) { watch_->TestEnded(); }

void WithWindow(const QString& name, WindowSteps steps) {
  Appointments().push_back({name, std::move(steps), {}});
  Appointments().back().waiting.start();
}

DrivenByTest::DrivenByTest() { ++drivenByTest; }
DrivenByTest::~DrivenByTest() { --drivenByTest; }

QObject& FindObject(const QObject& window, const QString& name, const QMetaObject& type) {
  for (QObject* object : window.findChildren<QObject*>(name)) {
    if (type.cast(object)) return *object;
  }
  throw std::runtime_error("there is no " + std::string(type.className()) + " " + name.toStdString() + " in " +
                           window.objectName().toStdString());
}

QAction& FindAction(const QWidget& window, const QString& owner, const QString& name) {
  for (QAction* action : window.findChildren<QAction*>(name)) {
    if (action->parent() && action->parent()->objectName() == owner) return *action;
  }
  throw std::runtime_error("there is no action " + name.toStdString() + " in " + owner.toStdString() + " of " +
                           window.objectName().toStdString());
}

QString TextIn(const QWidget& window, const QString& name) {
  return Find<QWidget>(window, name).property("text").toString();
}

}  // namespace folvane::test
