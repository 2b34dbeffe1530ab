#pragma once

#include <QString>
#include <vector>

#include <folvane/ArchiveRules.h>

#include "data/Recordset.h"
#include "design/transfer/NumberPiece.h"

namespace folvane {

/// How the archive number of a table is made up: of fixed fields, which one volume has in common, and of the running
/// number of the item, which is the last one.
struct NumberFormat {
  std::vector<NumberField> fixedFields;
  NumberField itemField;
  QString storeField;   ///< the column that takes the number; "" where none is composed
  QString folderField;  ///< the column that takes the number without its last piece; "(无)" for none

  bool HasFolder() const;
  /// Whether the running number is a page number.
  bool CountsPages() const { return itemField.name.compare(u"PageNo", Qt::CaseInsensitive) == 0; }
};

/// The format with the values that the window of the archive parameters left.
NumberFormat SharedNumberFormat();

/// The condition of the rows that have the fixed fields' values, beginning with " Where "; "" without fixed fields.
QString ScopeClauseOf(const NumberFormat& format);

/// The piece that a field's value makes of a number: a fonds or a class by code or name and as long as that is, any
/// other value or the code of its dictionary entry, filled up with zeros.
/// @param table whose dictionaries are asked @throws DataError
QString ComposeNoPiece(const NumberField& field, const QString& value, const QString& table);

/// The pieces of the fixed fields, each behind its separator. @throws DataError
QString FixedPieces(const NumberFormat& format, const QString& table);

/// The name of a fonds (kind 1), or of a class of the current fonds (kind 2); "" when there is none, and for any other
/// kind. @throws DataError
QString LookupCodeName(int kind, const QString& code);

}  // namespace folvane
