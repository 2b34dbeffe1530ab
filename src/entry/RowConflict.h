#pragma once

#include <QString>
#include <vector>

#include "data/Recordset.h"
#include "forms/EntryLayout.h"

namespace folvane {

/// What someone else has made of a record that is being edited.
struct RowConflict {
  struct Difference {
    QString caption;
    QString mine;  ///< what the other saved, where it was not changed here
    QString theirs;
  };
  bool isDeleted = false;
  std::vector<Difference> differences;  ///< the fields that the other has changed, in the order of the form
};

/// Compares the current record with the database. @throws DataError
RowConflict ReadConflict(const Recordset& records, const EntryLayout& layout, const QString& table);

/// Tells the user about it under a title and lets him look at the other's values. Answers whether he wants to save his
/// own over them.
bool AskAboutConflict(const RowConflict& conflict, const QString& title);

}  // namespace folvane
