#pragma once

#include <QByteArray>

struct sqlite3;

namespace folvane {

/// Registers what translated statements call by name: the collation FOLVANE (ASCII letters alike, trailing blanks
/// without meaning) and the functions that begin with folvane_. They stay with the handle. A text that is no number or
/// no date and a division by zero are errors with the code SQLITE_MISMATCH.
/// @throws DataError
void RegisterSqliteFunctions(sqlite3* database);

/// Registers a collation that orders Chinese by pinyin, and stays with the handle.
/// @return its name, "" where Qt was built without the tables for it
QByteArray RegisterPinyinCollation(sqlite3* database);

}  // namespace folvane
