#include "widgets/LongWork.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QProgressBar>
#include <QWidget>

namespace folvane {
namespace {

// Work that ends sooner shows nothing.
constexpr int kMillisecondsBetweenLooks = 60;

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::Close:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::InputMethod:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::Wheel:
      return true;
    default:
      return false;
  }
}

}  // namespace

LongWork::LongWork(QWidget& window, QWidget* stopKey, Show show)
    : window_(window), stopKey_(stopKey), show_(std::move(show)) {
  sinceShown_.start();
  QCoreApplication::instance()->installEventFilter(this);
}

LongWork::~LongWork() { show_(-1, 0); }

bool LongWork::GoOn(qint64 done, qint64 maximum) {
  if (sinceShown_.elapsed() < kMillisecondsBetweenLooks) return !stopped_;
  show_(int(done), int(maximum));
  QCoreApplication::processEvents();
  sinceShown_.start();
  return !stopped_;
}

bool LongWork::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_) NoteDialog(event->type());
  if (isInDialog_) return false;
  // A window of the window system hands its input on to a widget, where it comes by here again.
  if (!IsInput(event->type()) || watched->isWindowType()) return false;
  if (stopKey_ && AsksForEnd(*watched, *event)) stopped_ = true;
  event->setAccepted(event->type() != QEvent::Close);
  return true;
}

// A modal dialog blocks the window for as long as it is open.
void LongWork::NoteDialog(QEvent::Type type) {
  if (type == QEvent::WindowBlocked && !isInDialog_) {
    isInDialog_ = true;
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  } else if (type == QEvent::WindowUnblocked && isInDialog_) {
    isInDialog_ = false;
    QGuiApplication::restoreOverrideCursor();
  }
}

bool LongWork::AsksForEnd(const QObject& receiver, const QEvent& event) const {
  const auto* widget = qobject_cast<const QWidget*>(&receiver);
  if (!widget || widget->window() != &window_) return false;
  if (event.type() == QEvent::KeyPress) {
    const int key = static_cast<const QKeyEvent&>(event).key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    return key == Qt::Key_Escape || (presses && widget == stopKey_);
  }
  if (event.type() == QEvent::Close) return widget == &window_;
  const bool isPress = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::Shortcut;
  return isPress && widget == stopKey_;
}

LongWork::Show ShowIn(QProgressBar& bar) {
  return [&bar](int done, int maximum) {
    bar.setVisible(done >= 0);
    if (done < 0) return;
    bar.setMaximum(maximum);
    bar.setValue(done);
  };
}

}  // namespace folvane
