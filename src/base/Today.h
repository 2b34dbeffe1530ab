#pragma once

#include <QDate>

namespace folvane {

/// Today by the clock of the surroundings.
QDate Today();

}  // namespace folvane
