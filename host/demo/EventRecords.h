#pragma once

#include "host/demo/RecordContext.h"

namespace folvane::demo {

/// Writes the chronicle of events, Dsj.
void WriteEvents(const RecordContext& around);

}  // namespace folvane::demo
