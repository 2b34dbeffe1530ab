#include "shell/ModalWindow.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <exception>

#include <folvane/DataError.h>

#include "shell/WindowPlacement.h"

namespace folvane {
namespace {

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

void ShowModal(QWidget& window, std::function<void()> opening) {
  if (window.isVisible()) {
    throw DataError(DataErrorKind::Usage, QStringLiteral("窗口“%1”已经打开。").arg(window.windowTitle()));
  }
  const QPointer<QWidget> shown(&window), parent(QApplication::activeWindow());
  QEventLoop loop;
  EndOfWindow end(window, loop);
  std::exception_ptr failure;
  QObject opener;  // a window gone before its opening takes the pending call with it
  const auto open = [&] {
    try {
      opening();
    } catch (...) {
      failure = std::current_exception();
      if (shown) shown->hide();
    }
  };
  // Queued before the window is shown, so that it comes before whatever the showing sets off.
  if (opening) QMetaObject::invokeMethod(&opener, open, Qt::QueuedConnection);

  ShowOver(window, parent);
  loop.exec(QEventLoop::DialogExec);

  if (shown) {
    shown->hide();  // still visible when the application quits
    SetTransientParent(*shown, nullptr);
  }
  if (parent && parent->isVisible()) parent->activateWindow();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace folvane
