#pragma once

#include <QString>

namespace folvane::host {

/// The demo database in the library's program directory, made with its originals and settings files when it is missing.
/// Gives its path. @throws std::exception
QString ProvideDemoDatabase(int records);

}  // namespace folvane::host
