#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace folvane {

/// A combo box of an entry form with the entries of its list, those typed into it included.
struct ComboEntries {
  QString dataField;
  QStringList entries;
};

/// Writes entries that the dictionaries of the table's combo boxes do not have into them, making a dictionary that is
/// missing. @throws DataError
void WriteBackDictionaries(const QString& table, const std::vector<ComboEntries>& combos);

}  // namespace folvane
