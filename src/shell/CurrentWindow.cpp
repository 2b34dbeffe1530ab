#include "shell/CurrentWindow.h"

#include <QApplication>

namespace folvane {

QWidget* CurrentWindow() {
  // While a modal window is open it is the one, also in the moment before the window system has made it active again.
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : QApplication::activeWindow();
}

}  // namespace folvane
