#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace folvane {

/// Told how many steps are done; false asks for the end of the work.
using GoOn = std::function<bool(int done)>;

/// Runs work in a thread of its own while the window waits, alive, with a bar that shows how far it has come and a key
/// that ends it. What the work throws is thrown here.
void RunInBackground(QWidget* window, const QString& text, int steps, const std::function<void(const GoOn&)>& work);

}  // namespace folvane
