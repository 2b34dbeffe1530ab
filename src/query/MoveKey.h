#pragma once

#include <QString>

class QAbstractButton;

namespace folvane {

/// Names a button that moves rows and gives it a tip and a shortcut, which the tip tells. The shortcut clicks at once,
/// and again as often as it is pressed; one of the button itself would click at the pace of its animation.
void SetUpMoveKey(QAbstractButton& button, const QString& name, const QString& tip, const QString& shortcut);

}  // namespace folvane
