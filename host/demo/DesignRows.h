#pragma once

#include <vector>

#include <folvane/Connection.h>

#include "host/demo/TableDesign.h"

namespace folvane::demo {

/// Adds what the design tables say of the business tables: data dictionary, entry forms, lists and searches. The
/// proofing rules are there already and learn the controls of their fields.
void WriteDesign(Connection& connection, const std::vector<TableDesign>& tables);

}  // namespace folvane::demo
