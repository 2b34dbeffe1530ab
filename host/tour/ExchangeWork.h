#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps that save the documents in view to a file.
void PlanSaving(Tour& tour);

/// Adds the step that chooses a second database to log on to, smaller than the first, and the one that goes back.
void PlanSecondDatabase(Tour& tour);
void PlanFirstDatabase(Tour& tour);

/// Adds the steps that take the documents of the file which it lacks into the second database.
void PlanTaking(Tour& tour);

}  // namespace folvane::host
