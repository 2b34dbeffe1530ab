#include <folvane/HostServices.h>

#include "components/reports/ReportDesigner.h"
#include "components/reports/ReportEngine.h"

namespace folvane::reports {
namespace {

// Windows know the engine only as a service; whoever links this component gets it by default.
[[maybe_unused]] const bool registered = [] {
  Services().runReport = &RunReport;
  Services().designReport = &DesignReport;
  return true;
}();

}  // namespace
}  // namespace folvane::reports
