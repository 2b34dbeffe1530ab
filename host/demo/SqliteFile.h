#pragma once

#include <QString>
#include <functional>

#include <folvane/Connection.h>

namespace folvane::demo {

/// Makes a SQLite database at a path, filled by the given work; what stands there now stays until its successor is
/// finished, and nothing is left of one that is not.
/// @throws std::runtime_error where the file cannot be made; whatever the work throws
void MakeSqliteFile(const QString& path, const std::function<void(Connection&)>& fill);

}  // namespace folvane::demo
