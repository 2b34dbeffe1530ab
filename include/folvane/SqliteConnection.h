#pragma once

#include <folvane/Connection.h>

struct sqlite3;

namespace folvane {

/// Takes over an open SQLite database for use, not for ownership: the host closes it.
/// Registers the collation and the functions that the dialect needs on the handle.
FOLVANE_EXPORT std::shared_ptr<Connection> AdoptSqlite(sqlite3* database);

}  // namespace folvane
