#pragma once

class QHeaderView;
class QSplitter;
class QWidget;

namespace folvane {

/// Gives a window the size and position that the user left it with, within the screen; one that was never shown keeps
/// the size it has. It is remembered by its object name whenever it is hidden.
void KeepPlacement(QWidget& window);

/// The same for the widths of a list's columns, by the object names of its window and its own.
void KeepWidths(QHeaderView& header);

/// And for the parts that a splitter has divided its room into.
void KeepSizes(QSplitter& splitter);

}  // namespace folvane
