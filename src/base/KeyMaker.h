#pragma once

#include <QString>

namespace folvane {

/// The key of a new record, original or flow sheet: the time to the second as yyyymmddhhnnss and six random digits,
/// 20 digits in all.
QString CreateName();

}  // namespace folvane
