#pragma once

#include <memory>

#include <folvane/OriginalFiles.h>

namespace folvane {

/// The store in a directory that all workstations reach. Links that lead out of it are not followed.
/// @param root as it is configured, with "\" or "/" between directories
/// @throws DataError File where the directory cannot be reached
std::unique_ptr<OriginalFiles> DirectoryOriginals(const QString& root);

}  // namespace folvane
