#include <folvane/HostServices.h>

#include "components/originals/Commands.h"

namespace folvane::originals {
namespace {

// Windows know the component only as a service; whoever links it gets it by default.
[[maybe_unused]] const bool isRegistered = [] {
  Services().handleOriginals = &HandleOriginals;
  return true;
}();

}  // namespace
}  // namespace folvane::originals
