#pragma once

#include <QStringList>
#include <vector>

#include <folvane/Design.h>

#include "design/PhysicalTables.h"

namespace folvane::design {

/// The statements that keep in step with a design what clerks have written beside it: a proofing rule follows the
/// control that it was made for, an order loses the columns that go, and with a table goes all that was kept about it.
/// @param drops the columns and tables that go
/// @throws DataError
QStringList ClerksStatements(Connection& connection, const Design& base, const Design& wanted,
                             const std::vector<PhysicalStep>& drops);

}  // namespace folvane::design
