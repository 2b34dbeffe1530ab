#include "shell/WindowPlacement.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include "base/IgnoreErrors.h"
#include "shell/RegistryValues.h"

namespace folvane {
namespace {

const QString kWindows = QStringLiteral("Software\\Norvex\\Folvane\\Windows");

bool RestoreStored(QWidget& window) {
  QString stored;
  // Where a window stood is a comfort; no trouble with the store may keep the window from opening.
  if (!window.objectName().isEmpty()) {
    IgnoreErrors([&] { stored = QueryValue(kCurrentUser, kWindows, window.objectName()); });
  }
  return !stored.isEmpty() && window.restoreGeometry(QByteArray::fromBase64(stored.toLatin1()));
}

void MoveInto(QRect& place, const QRect& screen) {
  place.moveRight(qMin(place.right(), screen.right()));
  place.moveBottom(qMin(place.bottom(), screen.bottom()));
  place.moveLeft(qMax(place.left(), screen.left()));
  place.moveTop(qMax(place.top(), screen.top()));
}

}  // namespace

void RestorePlacement(QWidget& window) {
  const bool restored = RestoreStored(window);
  if (window.isMaximized() || window.isFullScreen()) return;
  if (!restored && !window.testAttribute(Qt::WA_Resized)) window.adjustSize();
  const QWidget* active = QApplication::activeWindow();
  const QRect screen = (active && !restored ? active : &window)->screen()->availableGeometry();
  QRect place(window.pos(), window.size().boundedTo(screen.size()));
  if (!restored) place.moveCenter(active ? active->frameGeometry().center() : screen.center());
  MoveInto(place, screen);
  window.resize(place.size());
  window.move(place.topLeft());
}

void RememberPlacement(const QWidget& window) {
  if (window.objectName().isEmpty()) return;
  const QString geometry = QString::fromLatin1(window.saveGeometry().toBase64());
  IgnoreErrors([&] { SaveValue(kCurrentUser, kWindows, window.objectName(), geometry); });
}

}  // namespace folvane
