#pragma once

#include "flows/Flow.h"
#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus and the toolbar of a flow's window, without what drops down from its keys.
CommandDesign FlowCommands(const Flow& flow);

/// Adds what drops down from the keys DELETE, FindOption and Read of a flow with a route.
void AddKeyMenus(const Flow& flow, WindowCommands& commands);

/// The commands of a route that a head which waits can be given, and those of one on its route: entries of the menu and
/// of the key Read.
QStringList IdleRouteCommands(const Flow& flow);
QStringList RunningRouteCommands();

}  // namespace folvane
