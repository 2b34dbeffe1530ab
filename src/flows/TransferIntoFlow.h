#pragma once

#include <QString>

#include "data/Recordset.h"

namespace folvane {

/// Sends a record into a flow, after asking, and offers to open the flow's window on it. A record that is there already
/// is only offered to be looked at. What fails once the user has agreed ends nothing; it is told beside the question
/// that follows.
/// @param fields of the record at the position of its record set
/// @param flowTable the head table; any other than those of distribution and circulation stands for handling
/// @throws DataError before the user has agreed
void TransferIntoFlow(const FieldList& fields, const QString& tableName, const QString& flowTable);

/// The same for a record of a list or a form, which is read again first; one that is gone is told.
/// @return whether the record is still there @throws DataError
bool TransferRecord(const QString& tableName, const QString& archiveId, const QString& flowTable);

}  // namespace folvane
