#pragma once

#include <vector>

#include <folvane/Connection.h>

#include "host/demo/TableDesign.h"

namespace folvane::demo {

/// Adds what the design tables say of the business tables: data dictionary, entry forms, lists, searches and proofing
/// rules.
void WriteDesign(Connection& connection, const std::vector<TableDesign>& tables);

}  // namespace folvane::demo
