#pragma once

#include <QString>

#include "records/TableParameters.h"

namespace folvane {

/// Whether the user's id, read as a number, is 1: the administrator, who has every right without a row.
/// @throws DataError Conversion when the id is not a number
bool IsAdministrator(const QString& userId);

/// Fills the row's limit, rights and rights text for the current user.
void ReadTableRights(TableParameters& parameters, int row, const QString& table);

/// The browse order of a table for the current user. A table without one gets "ArchiveId Desc" and a row for it.
QString ReadDefaultOrder(const QString& table);

/// Keeps the browse order of a table for the current user.
void SaveOrder(const QString& table, const QString& order);
/// The same for a caller that knows whether the user has none for the table yet.
void StoreOrder(const QString& table, const QString& order, bool isNew);

}  // namespace folvane
