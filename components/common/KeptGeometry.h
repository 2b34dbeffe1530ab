#pragma once

class QHeaderView;
class QWidget;

namespace folvane::components {

/// Has a window open as the user left it the last time, under its object name; otherwise at its own size. To be called
/// once it is laid out.
void KeepGeometry(QWidget& window);
/// The same for the widths of a list's columns, whose list and window have object names.
void KeepWidths(QHeaderView& header);

}  // namespace folvane::components
