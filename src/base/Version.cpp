#include <string_view>

#include <folvane/Version.h>

namespace folvane {

// The package says the project's version, the header its own.
static_assert(std::string_view(FOLVANE_VERSION_STRING) == FOLVANE_PROJECT_VERSION);
static_assert(FOLVANE_VERSION_MAJOR == FOLVANE_PROJECT_VERSION_MAJOR);
static_assert(FOLVANE_VERSION_MINOR == FOLVANE_PROJECT_VERSION_MINOR);
static_assert(FOLVANE_VERSION_PATCH == FOLVANE_PROJECT_VERSION_PATCH);

QString Version() { return QStringLiteral(FOLVANE_VERSION_STRING); }

}  // namespace folvane
