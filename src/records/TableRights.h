#pragma once

#include <QString>

#include "records/TableParameters.h"

namespace folvane {

/// Whether the user's id, read as a number, is 1: the administrator, who has every right without a row.
/// @throws DataError Conversion when the id is not a number
bool IsAdministrator(const QString& userId);

/// Fills the row's limit, rights and rights text for the current user.
void ReadTableRights(TableParameters& parameters, int row, const QString& table);

}  // namespace folvane
