#pragma once

#include <QString>
#include <vector>

#include <folvane/Export.h>

// What a transfer into the archive makes of values and numbers, for a component that sets such transfers up.
namespace folvane {

// What the ADO type of an archive table's field decides; ResultSet::ColumnType tells it.

/// How a value of a record comes into a field.
enum class FieldBranch {
  Number,  ///< only as a number
  Date,    ///< only as a date
  Text,    ///< as the text it is, cut to the field's size; so go fractions, amounts and truth values too
};

FOLVANE_EXPORT FieldBranch BranchOf(int adoType);

/// Whether records are counted on in a running number field of that type: numbers, and the long types as well.
FOLVANE_EXPORT bool IsCountableFieldType(int adoType);

/// A field of an archive number.
struct NumberField {
  QString name, value;  ///< the value that the user gave; the last field has none
  QString separator;    ///< in front of the field's piece
  bool showCode = false;
  qint16 length = 0;  ///< of the piece, in bytes of the national code page
};

/// The archive number that fields with these values make in a table, as a transfer composes it: each piece behind its
/// separator, without the first character of all, which is expected to be the first separator.
/// @throws DataError Usage when no window of the library has a connection yet
FOLVANE_EXPORT QString ComposeArchiveNumber(const std::vector<NumberField>& fields, const QString& table);

/// The most bytes of the national code page that such a number takes.
FOLVANE_EXPORT int ArchiveNumberLength(const std::vector<NumberField>& fields);

}  // namespace folvane
