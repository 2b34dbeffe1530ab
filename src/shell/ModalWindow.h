#pragma once

#include <functional>

class QWidget;

namespace folvane {

/// For whatever is about to make a window: without the application object the toolkit would end the process.
/// @throws DataError Usage when the host has made no QApplication
void RequireApplication();

/// The window that the user works in, over which a further window or a message box is to open; nullptr when there is
/// none.
QWidget* CurrentWindow();

/// Shows a window modally over the active one and returns when it is hidden, closed or deleted. The object stays and
/// can be shown again. The window's size and position are remembered for the user under its object name.
///
/// `opening` runs once inside the event loop, right after the window is shown. An exception there ends the window and
/// is thrown again from here.
void ShowModal(QWidget& window, std::function<void()> opening = {});

/// For a window that is to be closed by a program: closes those that were shown modally over it, the top one first,
/// each with its own questions. While a message box waits for its answer nothing is closed.
/// @return whether none stands over the window any more
bool CloseWindowsOver(const QWidget& window);

}  // namespace folvane
