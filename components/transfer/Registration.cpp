#include <folvane/HostServices.h>

#include "components/transfer/EditTransferSettings.h"

namespace folvane::transfer {
namespace {

// Windows know the component only as a service; whoever links it gets it by default.
[[maybe_unused]] const bool isInstalled = [] {
  Services().editTransferSettings = &EditTransferSettings;
  return true;
}();

}  // namespace
}  // namespace folvane::transfer
