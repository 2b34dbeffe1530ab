#pragma once

#include <QString>

namespace folvane {

/// Two conditions joined by And; where one is empty the other stands alone.
QString JoinConditions(const QString& first, const QString& second);

/// The statement behind a record list. An empty condition gives no Where part.
QString RecordStatement(const QString& table, const QString& condition, const QString& order);

}  // namespace folvane
