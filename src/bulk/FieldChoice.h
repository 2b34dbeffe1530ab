#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

// On the shared connection; each @throws DataError.

/// The first column of a statement's rows as texts; nulls are left out.
QStringList FirstColumn(const QString& statement);

/// The field name that a look-up by caption gives. @throws DataError Usage when it gives none
QString FieldFrom(const QString& statement, const QString& table, const QString& caption);

/// The captions of the fields of a table whose values a user may replace: not the archive number, not its parts, and
/// not what the user's rights exclude.
QStringList ReplaceableCaptions(const QString& table, const QString& userId);

/// The field of a caption. @throws DataError Usage for a caption that the table does not have
QString FieldOfCaption(const QString& table, const QString& caption);

/// The distinct values of a field, in the order that the database gives.
QStringList ValuesOfField(const QString& table, const QString& field);

}  // namespace folvane
