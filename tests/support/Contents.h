#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "support/TestDatabase.h"

namespace folvane::test {

/// The rows of every table of a database, sorted.
using Contents = std::map<QString, QStringList>;
/// @param rows runs a statement of the database and gives its rows
Contents ContentsOf(const std::string& kind, const std::function<std::vector<QStringList>(const QString&)>& rows);
Contents ContentsOf(TestDatabase& database);
/// What differs, a line each.
QString Difference(const Contents& expected, const Contents& actual);

}  // namespace folvane::test
