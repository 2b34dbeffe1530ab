#pragma once

#include <QStringList>

#include <folvane/Design.h>

// The names in the condition that limits the rows of a table, whatever form it has. One that cannot be taken apart
// names nothing and stays as it is; the database says what is wrong with it.
namespace folvane::design {

/// Whether a condition names that column.
bool Names(const QString& condition, const QString& column);

/// The fields of the table that a condition names, in its order.
QStringList FieldsIn(const QString& condition, const Design::Table& table);

/// The condition with another name for a field of the table.
QString WithFieldRenamed(const QString& condition, const QString& table, const QString& from, const QString& to);

/// The condition with another name for the table, where it stands in front of a field.
QString WithTableRenamed(const QString& condition, const QString& from, const QString& to);

}  // namespace folvane::design
