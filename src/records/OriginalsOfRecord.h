#pragma once

#include <QString>
#include <vector>

#include "catalogue/OriginalRows.h"

namespace folvane {

/// The originals of a record in their order.
std::vector<OriginalRow> ReadOriginals(const QString& recordKey);

/// Whether a record has originals.
bool HasOriginals(const QString& recordKey);

}  // namespace folvane
