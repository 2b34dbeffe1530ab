#pragma once

#include <QString>
#include <exception>

class QComboBox;

namespace folvane {

class Recordset;

// The fields of a table, as the design tables and the table itself have them, read on the shared connection.

/// Whether the statement that names the field and the table is accepted, which is what the callers rely on: it does not
/// look the field up. False on any error.
bool TableHasField(const QString& table, const QString& field);

/// Whether an open record set has a field of that name. False on any error.
bool FieldExists(const Recordset& records, const QString& name);

/// The caption of a table's field, "" when the table has no such field. @throws DataError
QString GetChnFieldName(const QString& table, const QString& field);

/// An error's text for the user of a table: where a value was refused, the column is called by its caption if it has
/// one. No error escapes from the look-up of the caption.
QString ErrorTextFor(const QString& table, const std::exception& error);

/// Adds the search fields of a table to the four parallel lists of the quick search bar. @throws DataError
void FillSearchFields(const QString& table, QComboBox& fields, QComboBox& captions, QComboBox& types,
                      QComboBox& values);

}  // namespace folvane
