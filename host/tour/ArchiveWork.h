#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of work with the archive: three documents go into a new volume from the browser, forty ticked ones
/// from the archive window; the sums of that volume are looked at, and three documents merged into one.
void PlanArchiving(Tour& tour);

}  // namespace folvane::host
