#pragma once

#include <QString>
#include <vector>

#include "forms/EntryLayout.h"

namespace folvane {

/// Writes entries that the dictionaries of the table's combo boxes do not have into them, making a dictionary that is
/// missing. @throws DataError
void WriteBackDictionaries(const QString& table, const std::vector<ComboEntries>& combos);

}  // namespace folvane
