#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "catalogue/QueryRows.h"

namespace folvane {

/// What the compound query hands to its caller.
struct ConditionText {
  QString sql;    ///< what follows Where, the values quoted as they stand; "" for no condition
  QString words;  ///< the same to be shown

  bool operator==(const ConditionText&) const = default;
};

/// The text of saved conditions, in the order of their numbers.
///
/// A connector belongs to a condition and the one before it, and stands behind its condition: so the last condition
/// comes first in the text, and the first, which has no connector, ends it with two blanks. Nothing is grouped in the
/// SQL. A condition alone has no connector. The words say 包含 for 不包含 too.
ConditionText TextOf(const QString& table, const std::vector<QueryConditionRow>& conditions);

/// The condition with a restriction behind it; both as they are, so that an Or in the condition leaves the restriction
/// to the part that stands last.
QString Restricted(const QString& condition, const QString& restriction);

/// A condition that does not count as it reads, by its field, relation and value as far as they are there, and why.
QString LeftOutText(const QStringList& words, const QString& reason);

/// What the user is told of such conditions before a query of theirs is put to use; "" when there are none.
QString LeftOutNote(const QStringList& conditions);

}  // namespace folvane
