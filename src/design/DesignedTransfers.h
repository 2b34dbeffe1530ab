#pragma once

#include <folvane/Design.h>

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"

// What a design says of transfers and archive numbers, as the checks of transfers read it.
namespace folvane::design {

/// The tables of a design, with the columns that the database has and those that it will have.
/// @param connection null for no database @throws DataError
transfer::BusinessTables TablesOf(const Design& design, Connection* connection);

transfer::NumberFormat FormatOf(const Design::Table& table);
/// The transfers and the formats of the tables that have one.
transfer::Settings SettingsOf(const Design& design);

}  // namespace folvane::design
