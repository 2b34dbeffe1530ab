#pragma once

#include <QStringList>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "data/Recordset.h"
#include "forms/EntryLayout.h"

namespace folvane {

// What the user is told or asked, under a title, about a record that the database has not taken or that others have
// changed.

/// Why the record was refused: the field by its caption in the table's form.
MessageRequest RefusalMessage(const QString& table, const DataError& error, const QString& title);

/// Whether a record whose key another one has got is to be saved with a new key.
MessageRequest NewKeyQuestion(const QString& table, const DataError& error, const QString& title);

/// Someone else has changed the record that is being edited: whether the user wants to see how.
MessageRequest ConflictQuestion(const QString& title);

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

/// Whether the user wants to save his values over those of the other, which it lists.
MessageRequest OverwriteQuestion(const std::vector<FieldConflict>& conflicts, const QString& title);

/// Whether the current record is to be deleted, of which others have changed these columns.
MessageRequest DeleteQuestion(const QStringList& changed, const EntryLayout& layout, const QString& title);

/// The record that the user has edited is gone.
MessageRequest DeletionMessage(const QString& title);

}  // namespace folvane
