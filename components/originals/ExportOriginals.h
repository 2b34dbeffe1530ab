#pragma once

#include <vector>

#include "components/originals/RecordOriginals.h"

class QWidget;

namespace folvane::originals {

/// Asks where to, and copies originals there: one under a name that the user gives, several into a folder under names
/// that nothing has there. Tells which of them failed.
/// @return how many were copied
int ExportOriginals(QWidget* parent, RecordOriginals& originals, const std::vector<Original>& which);

}  // namespace folvane::originals
