#pragma once

class QWidget;

namespace folvane {

/// The window that the user works in, over which a further window or a message box is to open; nullptr when there is
/// none.
QWidget* CurrentWindow();

}  // namespace folvane
