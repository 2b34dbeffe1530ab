#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of a transfer: three documents go into a new volume of the archive.
void PlanArchiving(Tour& tour);

}  // namespace folvane::host
