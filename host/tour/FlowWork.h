#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of a document's circulation, from the browser, which stands on it: a route of two nodes from its
/// start to its end, and the printed sheet.
void PlanFlow(Tour& tour);

}  // namespace folvane::host
