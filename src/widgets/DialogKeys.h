#pragma once

#include <QString>

class QAbstractButton;
class QDialog;
class QHBoxLayout;
class QPushButton;

namespace folvane {

/// The bottom row of a dialog: CmdOK, which Enter presses as well, and CmdCancel, which ends the dialog, as Escape
/// does. What OK does is the dialog's own matter.
struct DialogKeys {
  explicit DialogKeys(QDialog& dialog);

  QHBoxLayout* row;  ///< the keys stand at its right end; for the dialog's layout to take
  QPushButton *ok, *cancel;
};

/// Names a button that moves rows and gives it a tip and a shortcut, which the tip tells. The shortcut clicks at once,
/// and again as often as it is pressed; one of the button itself would click at the pace of its animation.
void SetUpMoveKey(QAbstractButton& button, const QString& name, const QString& tip, const QString& shortcut);

}  // namespace folvane
