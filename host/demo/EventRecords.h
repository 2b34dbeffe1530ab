#pragma once

#include "host/demo/RecordSurroundings.h"

namespace folvane::demo {

/// Writes the chronicle of events, Dsj.
void WriteEvents(const RecordSurroundings& around);

}  // namespace folvane::demo
