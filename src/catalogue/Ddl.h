#pragma once

#include <QStringList>

#include <folvane/Connection.h>

#include "catalogue/Table.h"
#include "data/dialect/NativeWords.h"

namespace folvane {

/// The type of a column in a database's own words.
/// @throws DataError Untranslatable for a database whose tables are not ours to make
QString TypeOf(const Column& column, const NativeWords& words);

/// The statements that make a table and its indexes in a database's own words.
/// @throws DataError Untranslatable for a database whose tables are not ours to make
QStringList CreateStatements(const NativeWords& words, const Table& table);

/// Makes a table with its key and indexes. @throws DataError
void CreateTable(Connection& connection, const Table& table);

/// Makes the indexes of a table that was made without them, as is quicker where many rows come first. @throws DataError
void CreateIndexes(Connection& connection, const Table& table);

/// Whether the database has a table of that name now. @throws DataError
bool HasTable(Connection& connection, const QString& name);

/// Removes a table if it is there. @throws DataError
void DropTable(Connection& connection, const QString& name);

/// Makes all design, flow and rights tables on an empty database; CreateTables looks at what is there first.
/// @throws DataError
void CreateCatalogue(Connection& connection);

}  // namespace folvane
