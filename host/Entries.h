#pragma once

#include <QString>
#include <array>

#include <folvane/ClsFolvane.h>

namespace folvane::host {

/// One of the six ways into the library, as the start window offers it.
struct Entry {
  QString name;  ///< of the operation, and of the button
  QString icon, title, line;
  void (ClsFolvane::*open)();
};

const std::array<Entry, 6>& Entries();

}  // namespace folvane::host
