#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps from the log-on to the last window: an administrator's work in the browser, then what a user with
/// limited rights and one without any see there.
void PlanWalk(Tour& tour);

}  // namespace folvane::host
