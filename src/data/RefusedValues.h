#pragma once

#include <QStringList>

#include <folvane/DataError.h>

namespace folvane {

// Errors over values that do not go into their columns, in words for the user. The message names a column as “column”.

/// @param length of the value, in the unit of the limit: bytes of the national code page
DataError TooLongError(const QString& column, int length, int limit);

/// @param columns those of the key that the row shares with another, empty when the database does not tell
/// @param value what stands in the one column of the key, "" when that is not known
DataError DuplicateError(const QStringList& columns, const QString& nativeCode, const QString& value = {});

}  // namespace folvane
