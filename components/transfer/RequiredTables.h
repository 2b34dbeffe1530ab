#pragma once

namespace folvane {
class Connection;
}

namespace folvane::transfer {

/// Makes sure that the design tables are there which the settings stand in and lean on.
/// @throws DataError Usage that names those that are missing, and the columns that others lack
void RequireTables(Connection& connection);

}  // namespace folvane::transfer
