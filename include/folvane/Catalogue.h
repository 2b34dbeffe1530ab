#pragma once

#include <QStringList>

#include <folvane/Connection.h>
#include <folvane/Export.h>

// The tables that the library reads its own description from: design, flow and rights tables. What each of their
// columns means is told in docs/design-tables.md.
namespace folvane {

/// Makes the tables that are missing, with their indexes, and the columns that the others lack; what is there stays as
/// it is. All of it or nothing: in a transaction of its own, or in the one that is open.
/// @throws DataError Untranslatable for a server other than SQLite and PostgreSQL, whose tables its own tools make
FOLVANE_EXPORT void CreateTables(Connection& connection);

/// What is missing, in sentences for the user: one for all tables, one for each table that lacks columns. Empty when
/// all is there. @throws DataError
FOLVANE_EXPORT QStringList CheckTables(Connection& connection);

}  // namespace folvane
