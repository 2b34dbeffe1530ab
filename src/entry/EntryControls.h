#pragma once

#include <QObject>
#include <functional>

#include "forms/EntryLayout.h"

namespace folvane {

/// Gives the control of the open entry form of a kind and number, null when there is none. A control answers the
/// property "text".
using ControlFinder = std::function<QObject*(const ControlId& control)>;

/// Called by the entry form: with its look-up as it opens, with an empty function as it closes.
void SetControlFinder(ControlFinder finder);

/// Null as well when no entry form is open.
QObject* FindEntryControl(const ControlId& control);

}  // namespace folvane
