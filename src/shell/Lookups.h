#pragma once

#include <QString>
#include <QVariant>

class QComboBox;

namespace folvane {

// Values read on the shared connection; each look-up opens and closes its own record set. @throws DataError

/// The text of a column in the first row of a statement, "" when no row comes back.
QString FirstText(const QString& statement, const QString& column);

/// The id of a group's report, "" when there is none of that name.
QString GetReportId(const QString& group, const QString& name);

/// Adds the names of a dictionary to a list. The dictionary is an SQL expression: a quoted name or a bracketed select.
void FillDictionary(QComboBox& comboBox, const QString& dictionary);

/// The greatest value of a field in "table" or "table Where ...", 0 when there is none.
QVariant GetMaxValue(const QString& field, const QString& rest);

}  // namespace folvane
