#pragma once

#include <QStringList>

#include <folvane/DataError.h>

#include "data/Schema.h"

namespace folvane {

// Values that do not go into their columns, by one rule for every database. The errors are in words for the user and
// name a column as “column”.

/// Whether a text goes into a column of text. A column of varchar(n) holds n bytes of the national code page, one of
/// nvarchar(n) as many units of UTF-16, as on SQL Server.
bool FitsColumn(const QString& text, const ColumnInfo& column);

/// The text as its column keeps it: trailing blanks that do not fit are left off.
/// @param before what stands in its place; a value that was too long already may stay as long as it is
/// @throws DataError TooLong about the column
QString FittedText(const QString& text, const ColumnInfo& column, const QString& before = {});

/// @param columns those of the key that the row shares with another, empty when the database does not tell
/// @param value what stands in the one column of the key, "" when that is not known
DataError DuplicateError(const QStringList& columns, const QString& nativeCode, const QString& value = {});

}  // namespace folvane
