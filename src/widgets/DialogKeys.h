#pragma once

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

}  // namespace folvane
