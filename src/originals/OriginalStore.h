#pragma once

#include <QString>

#include <folvane/OriginalFiles.h>

namespace folvane {

class Recordset;

/// Whether the originals lie on an FTP server with a database of that kind; else in a directory.
bool LieOnServer(const QString& databaseKind);

/// Reads where the originals lie into the shared state, writing the setting's row when it is missing, and connects to
/// the server where they lie on one. Called once, when the record browser is first active.
/// @throws DataError Conversion where the network cannot be used, or the port is no number
void InitOriginalStore();

/// Connects to the server of the setting unless that has been done; tells the user what is missing or has failed.
/// Answers false only where the setting has no user.
bool ConnectFtpServer();

/// As DeleteOriginals, and answers what the user should know of files that could not be deleted although their rows
/// have gone; "" for none.
QString DeleteOriginalsAndTell(const QString& whereClause);
/// The same for those of a record.
QString DeleteOriginalsOf(const QString& recordKey);

/// Whether no row of the record set holds that file for another record. Leaves a filter on the record set.
bool IsOnlyHolder(Recordset& originals, const QString& fileId, const QString& recordId);

}  // namespace folvane
