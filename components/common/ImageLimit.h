#pragma once

#include <QtGlobal>

namespace folvane {

/// Lets Qt's image readers of this process decode images of so many bytes; a limit that is higher, or none, stays.
void AllowImagesOf(qint64 bytes);

}  // namespace folvane
