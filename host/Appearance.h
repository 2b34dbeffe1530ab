#pragma once

#include <QPalette>

class QApplication;

namespace folvane::host {

QPalette LightPalette();
QPalette DarkPalette();

/// Gives the program its look: one style on every desktop, light or dark as the desktop is.
void ApplyAppearance(QApplication& application);

}  // namespace folvane::host
