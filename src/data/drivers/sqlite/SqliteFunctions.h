#pragma once

struct sqlite3;

namespace folvane {

/// Registers on a handle what translated statements call: the collation FOLVANE, which compares without regard to ASCII
/// case and trailing blanks, and the functions folvane_like (patterns with classes), folvane_number and folvane_date
/// (texts as numbers and dates, an error where they are none) and folvane_replace.
void RegisterSqliteFunctions(sqlite3* database);

}  // namespace folvane
