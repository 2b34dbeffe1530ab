#pragma once

#include <QString>
#include <vector>

namespace folvane {

/// An original of a record as a list shows it.
struct OriginalEntry {
  QString id, name, type, size;
};

/// The originals of a record in their order.
std::vector<OriginalEntry> ReadOriginals(const QString& recordKey);

/// Whether a record has originals.
bool HasOriginals(const QString& recordKey);

}  // namespace folvane
