#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

namespace folvane {

/// The one default instance of a window class: made on the first reference, kept after the window is closed, and made
/// anew on the reference after Unload. The end of the application object unloads it.
template <typename Window>
class DefaultInstance {
 public:
  static Window& Get() {
    if (!instance_) {
      instance_ = new Window;
      qAddPostRoutine(&Unload);
    }
    return *instance_;
  }

  static bool IsLoaded() { return !instance_.isNull(); }

  /// Hides and deletes the window. For the caller that showed it; a handler of the window itself hides or closes it.
  static void Unload() {
    qRemovePostRoutine(&Unload);
    if (instance_) instance_->hide();
    delete instance_;
  }

 private:
  inline static QPointer<Window> instance_;
};

}  // namespace folvane
