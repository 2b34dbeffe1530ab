#pragma once

#include <QString>
#include <functional>

#include "bench/Meter.h"

namespace folvane::bench {

/// Draws the time that a table takes until its first page stands over the number of its rows, both axes logarithmic,
/// beside the bare loop and Qt's own model. @return the exit code of the program
int DrawGrowth(const QString& path, const std::function<Sample(const QString& name, qint64 rows)>& measure);

}  // namespace folvane::bench
