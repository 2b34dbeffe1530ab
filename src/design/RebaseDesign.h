#pragma once

#include <QStringList>

#include <folvane/Design.h>

namespace folvane::design {

/// What was changed from a design, done to what others have made of it meanwhile. Where both have changed the same,
/// it is as the others have it.
/// @param given where this was so, in words
Design Rebased(const Design& base, const Design& wanted, const Design& now, QStringList& given);

}  // namespace folvane::design
