#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <exception>

#include "base/CodePage.h"
#include "data/Recordset.h"
#include "shell/RegistryValues.h"

class QComboBox;
class QWidget;

namespace folvane {

// Without the database.

/// A field's filter of typed characters: the key code when the character is one of `allowed`, without regard to case,
/// or a backspace where that is allowed; otherwise a beep and 0, which cancels the key.
int FilterKey(int keyCode, const QString& allowed, bool allowBackspace);

/// Takes a text apart at the delimiter, "," when that is empty: one element more than there are delimiters.
void SplitText(QStringList& elements, const QString& text, const QString& delimiter);

/// The text for a quoted literal; with likeMode for a quoted pattern after Like.
QString EscapeSql(const QString& text, bool likeMode = false);

/// Shows a topic of help.chm in the program's directory, or says that the file is missing. Errors are not passed on.
void OpenHelp(QWidget* window, const QString& topic);

/// An error's text for the user of a table: where a value was refused, the column is called by its caption if it has
/// one. No error escapes from the look-up of the caption.
QString ErrorTextFor(const QString& table, const std::exception& error);

// On the shared connection; each opens and closes its own record set. Errors rise, @throws DataError, unless said.

/// The id of a group's report, "" when there is none of that name.
QString GetReportId(const QString& group, const QString& name);

/// Whether the statement that names the field and the table is accepted, which is what the callers rely on: it does not
/// look the field up. False on any error.
bool TableHasField(const QString& table, const QString& field);

/// Whether an open record set has a field of that name. False on any error.
bool FieldExists(const Recordset& records, const QString& name);

/// The caption of a table's field, "" when the table has no such field.
QString GetChnFieldName(const QString& table, const QString& field);

/// Adds the search fields of a table to the four parallel lists of the quick search bar.
void FillSearchFields(const QString& table, QComboBox& fields, QComboBox& captions, QComboBox& types,
                      QComboBox& values);

/// Adds the names of a dictionary to a list. The dictionary is an SQL expression: a quoted name or a bracketed select.
void FillDictionary(QComboBox& comboBox, const QString& dictionary);

/// The greatest value of a field in "table" or "table Where ...", 0 when there is none.
QVariant GetMaxValue(const QString& field, const QString& rest);

}  // namespace folvane
