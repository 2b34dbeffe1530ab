#pragma once

#include <vector>

#include "catalogue/Table.h"

namespace folvane {

/// All tables that the system knows by name: design, flows and rights. The business tables are whatever the design
/// tables describe.
const std::vector<Table>& CatalogueTables();

/// One of them by name without regard to case, nullptr for any other name.
const Table* FindCatalogueTable(const QString& name);

}  // namespace folvane
