#pragma once

#include "host/CommandLine.h"

namespace folvane::host {

/// The program from log-on to the last window, again for every user who logs on. Gives the exit code.
int Run(const Options& options);

}  // namespace folvane::host
