#include <folvane/createdname.h>

#include "base/KeyMaker.h"

namespace folvane {

QString createdname::CreateName() const { return folvane::CreateName(); }

}  // namespace folvane
