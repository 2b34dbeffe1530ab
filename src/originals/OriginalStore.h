#pragma once

#include <QString>

namespace folvane {

class Recordset;

/// Whether originals lie on an FTP server, which follows from the kind of database the host named; otherwise they lie
/// in a directory that all workstations reach.
bool OriginalsLieOnFtp();

/// Reads where the originals lie into the shared state, writing the setting's row when it is missing. Called once, when
/// the record browser is first active. A directory that is not set is "Data" beside the program.
void InitOriginalStore();

/// Deletes the originals of a clause that begins with " Where ": the files that no other record holds, then the rows.
void DeleteOriginals(const QString& whereClause);

/// Whether no row of the record set holds that file for another record. Leaves a filter on the record set.
bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId);

/// Where a file lies when originals lie in a directory, with the directory separator of this system.
QString OriginalPath(const QString& filePath, const QString& fileId, const QString& type);

}  // namespace folvane
