#include "base/Today.h"

#include <folvane/HostServices.h>

namespace folvane {

QDate Today() { return Services().now().date(); }

}  // namespace folvane
