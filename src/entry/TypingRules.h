#pragma once

#include <QString>
#include <QStringList>

#include "data/Recordset.h"

namespace folvane {

/// SBC.Ini in the program's directory says for each table in which fields half-width characters become full-width.
QString WideFieldsPath();

/// The names of those fields; "0" alone where there are none. @throws FileError
QStringList RegCbcIni(const QString& table);

/// Whether a column holds numbers. @throws DataError when there is no such column
bool IsNumericField(const Recordset& records, const QString& fieldName);

/// What a field does to what is typed into it.
struct TypingRules {
  bool digitsOnly = false;   ///< digits and points; anything else is refused with a beep
  bool dropsBlanks = false;  ///< without a beep
  bool widens = false;       ///< ASCII becomes full-width

  /// The rules of a text, combo or multi-line box; other kinds have none.
  /// @param wideFields as RegCbcIni gives them
  static TypingRules Of(int controlType, const QString& dataField, bool isNumeric, const QStringList& wideFields);

  /// What goes in of what was typed, "" for nothing.
  QString Admit(const QString& typed) const;
};

/// The bracket of a document number's year that a function key (Qt::Key) adds to a text box; "" for other keys, and in
/// a numeric field.
QString YearSignOf(int key, bool useSign, bool isNumeric);

}  // namespace folvane
