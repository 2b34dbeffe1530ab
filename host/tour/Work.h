#pragma once

#include "host/tour/Tour.h"

namespace folvane::host {

/// Adds the steps of a clerk's work on the table of incoming documents, which the browser shows: a document registered
/// by keyboard, searches and orders, and values replaced in many documents.
void PlanWork(Tour& tour);

}  // namespace folvane::host
