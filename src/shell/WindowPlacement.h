#pragma once

#include <QString>

class QWidget;

namespace folvane {

/// Gives a window the size and place that the user left it with, or else its own size in the middle of the screen. It
/// never reaches beyond the screen. A window without an object name is not remembered.
/// One that is made anew for every table has a place of its own for each.
void RestorePlacement(QWidget& window);
void RememberPlacement(const QWidget& window);

/// What a window shows, where its size and place are of that alone; to be called before it is shown.
void SetPlacementOf(QWidget& window, const QString& what);

}  // namespace folvane
