#pragma once

#include "host/CommandLine.h"

namespace folvane::host {

/// Runs the program on the tour: with a demo database, settings and registry of its own unless a database is named, so
/// that every tour finds the same. Gives the exit code, 0 when every step was taken.
int RunTour(const Options& options);

}  // namespace folvane::host
