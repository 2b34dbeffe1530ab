#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "data/Recordset.h"
#include "forms/EntryLayout.h"

namespace folvane {

/// A field of a record that is being edited and that someone else has changed meanwhile.
struct FieldConflict {
  QString caption;
  QString mine;  ///< what the other saved, where it was not changed here
  QString theirs;
};

/// What has become of the contested columns of the current record, which was read again under what was changed here; in
/// the order of the record set. @throws DataError
std::vector<FieldConflict> ConflictsIn(const Recordset& records, const QStringList& contested,
                                       const EntryLayout& layout);

/// Tells the user under a title and lets him look at the other's values. Answers whether he wants to save his own over
/// them.
bool AskAboutConflicts(const std::vector<FieldConflict>& conflicts, const QString& title);

/// Tells the user that the record he has edited is gone.
void TellOfDeletion(const QString& title);

}  // namespace folvane
