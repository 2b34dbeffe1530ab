#pragma once

#include <QString>

namespace folvane {

class Recordset;

/// Reads where the originals lie into the shared state, writing the setting's row when it is missing. Called once, when
/// the record browser is first active.
void InitOriginalStore();

/// Deletes the originals of a clause that begins with " Where ": the files that no other record holds, then the rows.
void DeleteOriginals(const QString& whereClause);

/// Whether no row of the record set holds that file for another record. Leaves a filter on the record set.
bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId);

}  // namespace folvane
