#pragma once

#include <QString>

class QLabel;
class QStatusBar;

namespace folvane {

/// A panel of a status bar, found by its name; it still has to be put into the bar. Its texts are shown as they are.
QLabel* NewStatusPanel(const QString& name, QStatusBar* bar);

}  // namespace folvane
