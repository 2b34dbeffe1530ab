#pragma once

#include <QString>

#include <folvane/Export.h>

// The version that a host is compiled against.
#define FOLVANE_VERSION_MAJOR 0
#define FOLVANE_VERSION_MINOR 1
#define FOLVANE_VERSION_PATCH 0
#define FOLVANE_VERSION_STRING "0.1.0"

namespace folvane {

/// The version of the library that is loaded, such as "0.1.0".
FOLVANE_EXPORT QString Version();

}  // namespace folvane
