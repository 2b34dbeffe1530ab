#pragma once

#include <QElapsedTimer>

namespace folvane::originals {

/// Tells when a window at work should show how far it is: at once, then some times a second.
class Pulse {
 public:
  bool IsDue() {
    if (since_.isValid() && since_.elapsed() < kMilliseconds) return false;
    since_.start();
    return true;
  }

 private:
  static constexpr int kMilliseconds = 40;
  QElapsedTimer since_;
};

}  // namespace folvane::originals
