#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of a report on the documents of the browser's list, and of a document's circulation: a route of two
/// nodes from its start to its end, and the printed sheet.
void PlanFlow(Tour& tour);

}  // namespace folvane::host
