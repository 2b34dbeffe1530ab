#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of the originals of a document: a PDF file and three scans are dropped on it, looked at, managed, and
/// one of them is deleted.
void PlanOriginals(Tour& tour);

}  // namespace folvane::host
