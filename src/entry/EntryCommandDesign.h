#pragma once

#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus and the toolbar of the entry window.
CommandDesign EntryCommandDesign();

/// The entries of the report menus are named "menuTemp(1)" and so on; as a command they go by this name.
inline const QString kRunReport = QStringLiteral("menuTemp");

/// The commands whose subsystems do not exist yet.
const QSet<QString>& UnavailableEntryCommands();

}  // namespace folvane
