#include "shell/WindowPlacement.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

#include "base/IgnoreErrors.h"
#include "shell/ModalWindow.h"
#include "shell/RegistryValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kWindows = u"Software\\Norvex\\Folvane\\Windows"_s;

constexpr char kPlacementOf[] = "PlacementOf";

QString StoredName(const QWidget& window) {
  const QString what = window.property(kPlacementOf).toString();
  return what.isEmpty() ? window.objectName() : window.objectName() + u'.' + what;
}

bool RestoreStored(QWidget& window) {
  QString stored;
  // Where a window stood is a comfort; no trouble with the store may keep the window from opening.
  if (!window.objectName().isEmpty()) {
    IgnoreErrors([&] { stored = QueryValue(kCurrentUser, kWindows, StoredName(window)); });
  }
  return !stored.isEmpty() && window.restoreGeometry(QByteArray::fromBase64(stored.toLatin1()));
}

// Where a window's inside may lie, so that its frame is on the screen as well.
QRect RoomFor(const QWidget& window) {
  const auto measure = [&window](QStyle::PixelMetric metric) {
    return window.style()->pixelMetric(metric, nullptr, &window);
  };
  const int title = measure(QStyle::PM_TitleBarHeight), frame = measure(QStyle::PM_MdiSubWindowFrameWidth);
  return window.screen()->availableGeometry().adjusted(frame, title, -frame, -frame);
}

QRect FittedInto(const QRect& room, QRect frame) {
  frame.setSize(frame.size().boundedTo(room.size()));
  frame.moveRight(qMin(frame.right(), room.right()));
  frame.moveBottom(qMin(frame.bottom(), room.bottom()));
  frame.moveLeft(qMax(frame.left(), room.left()));
  frame.moveTop(qMax(frame.top(), room.top()));
  return frame;
}

void PutInTheMiddle(QWidget& window) {
  if (!window.testAttribute(Qt::WA_Resized)) window.adjustSize();
  const QWidget* over = CurrentWindow();
  if (over) window.setScreen(over->screen());
  const QRect room = RoomFor(window);
  QRect frame(QPoint(), window.size().boundedTo(room.size()));
  frame.moveCenter(over ? over->geometry().center() : room.center());
  window.setGeometry(FittedInto(room, frame));
}

}  // namespace

void SetPlacementOf(QWidget& window, const QString& what) { window.setProperty(kPlacementOf, what); }

void RestorePlacement(QWidget& window) {
  if (!RestoreStored(window)) {
    PutInTheMiddle(window);
  } else if (!window.isMaximized() && !window.isFullScreen()) {
    window.setGeometry(FittedInto(RoomFor(window), window.geometry()));
  }
}

void RememberPlacement(const QWidget& window) {
  if (window.objectName().isEmpty()) return;
  const QString geometry = QString::fromLatin1(window.saveGeometry().toBase64());
  IgnoreErrors([&] { SaveValue(kCurrentUser, kWindows, StoredName(window), geometry); });
}

}  // namespace folvane
