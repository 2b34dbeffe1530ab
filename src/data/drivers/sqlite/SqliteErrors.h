#pragma once

#include <folvane/DataError.h>

struct sqlite3;

namespace folvane {

/// Throws the handle's last error as a DataError with the server's text. @param result the call's result code
[[noreturn]] void ThrowSqliteError(sqlite3* database, int result);

}  // namespace folvane
