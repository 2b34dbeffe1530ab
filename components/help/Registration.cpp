#include <folvane/HostServices.h>

#include "components/help/HelpViewer.h"

namespace folvane {
namespace {

// The shell knows the viewer only as a service; whoever links this component gets it by default.
[[maybe_unused]] const bool registered = [] {
  Services().showHelp = &ShowHelp;
  return true;
}();

}  // namespace
}  // namespace folvane
