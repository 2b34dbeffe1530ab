#pragma once

#include <QString>

class QWidget;

namespace folvane {

/// Gives a window the size and position that the user left it with, or else its own size in the middle of the screen.
/// It never reaches beyond the screen. A window without an object name is not remembered.
void RestorePlacement(QWidget& window);
void RememberPlacement(const QWidget& window);

/// Has a window remembered apart for each thing that it shows, such as a table. Called before the window is shown.
void SetPlacementOf(QWidget& window, const QString& what);

}  // namespace folvane
