#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps from the log-on window to the first record of a table of one's own, in an office of one's own. They
/// are those of docs/first-table.md, which shows their pictures.
void PlanOwnTable(Tour& tour);

}  // namespace folvane::host
