#pragma once

#include <QString>

namespace folvane {

/// The path of a file that was installed with the library. It follows the library wherever its folders are moved to.
QString InstalledFile(const QString& name);

}  // namespace folvane
