#pragma once

#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus of the record browser, the pop-up on the originals among them, and its toolbar. Commands whose subsystem
/// does not exist yet are unavailable.
CommandDesign BrowserDesign();

}  // namespace folvane
