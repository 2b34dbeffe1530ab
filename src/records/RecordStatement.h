#pragma once

#include <QString>

namespace folvane {

/// The statement behind a record list. An empty condition gives no Where part.
QString RecordStatement(const QString& table, const QString& condition, const QString& order);

}  // namespace folvane
