#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// The statement behind a record list. An empty condition gives no Where part.
QString RecordStatement(const QString& table, const QString& condition, const QString& order);

/// Whether a condition joins parts by Or outside of all parentheses; an Or in a quoted value or a quoted name is none.
/// False too for a text whose quotes, brackets or parentheses do not match: no database accepts that.
bool HasTopLevelOr(const QString& condition);

/// A user's rights condition and a condition of a query or a tree node, joined by And; where one is empty the other
/// stands alone. A query that joins by Or is put into parentheses, so that the rights bind every part of it; any other
/// stays as it is.
QString JoinedWithRights(const QString& rights, const QString& query);

/// What follows a key column in the condition that it holds one of those keys: " IN ('a','b')".
QString InKeys(const QStringList& keys);

}  // namespace folvane
