#pragma once

#include "widgets/WindowCommands.h"

namespace folvane {

/// The menus and the toolbar of the entry window.
CommandDesign EntryCommandDesign();

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
