#pragma once

#include "widgets/WindowCommands.h"

namespace folvane::designer {

/// The menus and the toolbar of the designer.
CommandDesign DesignerCommands();

}  // namespace folvane::designer
