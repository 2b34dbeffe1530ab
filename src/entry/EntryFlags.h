#pragma once

#include <QString>
#include <vector>

namespace folvane {

/// An option of the entry window: the mark of a menu entry, kept for the station in a registry value.
struct EntryFlag {
  QString entry, value;
};

/// AutoSave, UseSign and AutoStatus.
const std::vector<EntryFlag>& EntryFlags();

/// Off where nothing is kept.
bool ReadFlag(const EntryFlag& flag);
void SaveFlag(const EntryFlag& flag, bool on);

}  // namespace folvane
