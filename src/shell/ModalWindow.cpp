#include "shell/ModalWindow.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <exception>
#include <vector>

#include <folvane/DataError.h>

#include "shell/MessageBox.h"
#include "shell/WindowPlacement.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Ends the loop when the window is hidden, by whatever way, or deleted.
class EndOfWindow : public QObject {
 public:
  EndOfWindow(QWidget& window, QEventLoop& loop) : window_(window), loop_(loop) {
    window.installEventFilter(this);
    connect(&window, &QObject::destroyed, &loop, &QEventLoop::quit);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Hide && !event->spontaneous()) {
      RememberPlacement(window_);
      loop_.quit();
    }
    return false;
  }

 private:
  QWidget& window_;
  QEventLoop& loop_;
};

/// Runs a window's opening inside its loop, and keeps what it threw. The first thing to run there: whoever queued
/// something before is to find the window opened.
class Opening : public QObject {
 public:
  Opening(QWidget& window, std::function<void()> steps) : window_(&window), steps_(std::move(steps)) {
    if (steps_) QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
  }
  void RethrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 protected:
  void customEvent(QEvent*) override {
    try {
      steps_();
    } catch (...) {
      failure_ = std::current_exception();
      if (window_) window_->hide();
    }
  }

 private:
  QPointer<QWidget> window_;
  std::function<void()> steps_;
  std::exception_ptr failure_;
};

// The windows that are shown, each over the one before.
std::vector<QPointer<QWidget>>& ShownWindows() {
  static std::vector<QPointer<QWidget>> windows;
  return windows;
}

/// Keeps a window among them for as long as its loop runs.
class Standing {
 public:
  explicit Standing(QWidget& window) { ShownWindows().emplace_back(&window); }
  ~Standing() { ShownWindows().pop_back(); }
  Standing(const Standing&) = delete;
  Standing& operator=(const Standing&) = delete;
};

// Puts the window over its parent without making it the parent's property.
void SetTransientParent(QWidget& window, const QWidget* parent) {
  window.winId();  // makes the native window
  window.windowHandle()->setTransientParent(parent ? parent->window()->windowHandle() : nullptr);
}

void ShowOver(QWidget& window, const QWidget* parent) {
  window.setWindowModality(Qt::ApplicationModal);
  window.setAttribute(Qt::WA_QuitOnClose, false);  // the application is the host's
  RestorePlacement(window);
  SetTransientParent(window, parent);
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

void RequireApplication() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance())) return;
  throw DataError(DataErrorKind::Usage, u"尚未建立 QApplication，不能显示窗口，请先建立它。"_s);
}

QWidget* CurrentWindow() {
  // While a modal window is open it is the one, also in the moment before the window system has made it active again.
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : QApplication::activeWindow();
}

void ShowModal(QWidget& window, std::function<void()> opening) {
  if (window.isVisible()) {
    throw DataError(DataErrorKind::Usage, u"窗口“%1”已经打开。"_s.arg(window.windowTitle()));
  }
  const QPointer<QWidget> shown(&window), parent(CurrentWindow());
  QEventLoop loop;
  EndOfWindow end(window, loop);
  Opening opened(window, std::move(opening));
  const Standing standing(window);

  ShowOver(window, parent);
  loop.exec(QEventLoop::DialogExec);

  if (shown) {
    shown->hide();  // still visible when the application quits
    SetTransientParent(*shown, nullptr);
  }
  if (parent && parent->isVisible()) parent->activateWindow();
  opened.RethrowFailure();
}

bool CloseWindowsOver(const QWidget& window) {
  if (dynamic_cast<const MessageBox*>(QApplication::activeModalWidget())) return false;
  const std::vector<QPointer<QWidget>> shown = ShownWindows();
  const auto below = std::find(shown.rbegin(), shown.rend(), &window);
  if (below == shown.rend()) return true;
  return std::all_of(shown.rbegin(), below,
                     [](const QPointer<QWidget>& over) { return !over || !over->isVisible() || over->close(); });
}

}  // namespace folvane
