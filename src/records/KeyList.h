#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// What follows a key column in the condition that it holds one of those keys: " IN ('a','b')".
QString InKeys(const QStringList& keys);

}  // namespace folvane
