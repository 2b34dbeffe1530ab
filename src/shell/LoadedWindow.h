#pragma once

#include "shell/DefaultInstance.h"

namespace folvane {

/// The default instance of a window for one use: the caller sets its members, shows it and reads what it leaves; at the
/// end of the scope, an error included, the window is unloaded.
template <typename Window>
class LoadedWindow {
 public:
  LoadedWindow() = default;
  ~LoadedWindow() { DefaultInstance<Window>::Unload(); }
  LoadedWindow(const LoadedWindow&) = delete;
  LoadedWindow& operator=(const LoadedWindow&) = delete;

  Window& operator*() const { return DefaultInstance<Window>::Get(); }
  Window* operator->() const { return &DefaultInstance<Window>::Get(); }
};

}  // namespace folvane
