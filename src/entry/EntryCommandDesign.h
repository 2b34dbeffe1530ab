#pragma once

#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus and the toolbar of the entry window.
CommandDesign EntryCommandDesign();

/// The entries of the report menus are named "menuTemp(1)" and so on; as a command they go by this name.
inline const QString kRunReport = QStringLiteral("menuTemp");

/// The commands whose subsystems do not exist yet.
const QSet<QString>& UnavailableEntryCommands();

/// A menu entry whose mark is kept for the station in a registry value.
struct KeptMark {
  QString entry, value;
};

/// AutoSave, UseSign and AutoStatus.
const std::vector<KeptMark>& KeptMarks();

/// Not marked where nothing is kept.
bool ReadMark(const KeptMark& mark);
void KeepMark(const KeptMark& mark, bool on);

}  // namespace folvane
