#pragma once

#include <QString>

namespace folvane::test {

/// The scanner of SANE's test backend: 200 x 200 mm, with a feeder that holds ten sheets. The first call makes
/// it the only one that SANE knows in this process.
QString TestScanner();

}  // namespace folvane::test
