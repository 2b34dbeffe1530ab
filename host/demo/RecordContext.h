#pragma once

#include <functional>

#include <folvane/Connection.h>

#include "host/demo/FlowSheets.h"
#include "host/demo/Originals.h"
#include "host/demo/Plan.h"
#include "host/demo/Words.h"

namespace folvane::demo {

/// Where the records come from and where they leave their traces.
struct RecordContext {
  Connection& connection;
  const Plan& plan;
  const Words& words;
  Random& random;
  Originals& originals;
  FlowSheets& sheets;
  std::function<void()> recordDone;
};

}  // namespace folvane::demo
