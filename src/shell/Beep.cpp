#include "shell/Beep.h"

#include <QApplication>

#include <folvane/HostServices.h>

namespace folvane {

void Beep() {
  if (Services().beep) {
    Services().beep();
  } else {
    QApplication::beep();
  }
}

}  // namespace folvane
