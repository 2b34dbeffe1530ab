#include "entry/EntryControls.h"

namespace folvane {
namespace {

ControlFinder& Finder() {
  static ControlFinder finder;
  return finder;
}

}  // namespace

void SetControlFinder(ControlFinder finder) { Finder() = std::move(finder); }

QObject* FindEntryControl(const ControlId& control) { return Finder() ? Finder()(control) : nullptr; }

}  // namespace folvane
