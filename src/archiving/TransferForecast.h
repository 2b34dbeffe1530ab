#pragma once

#include <QString>

#include "forms/EntryLayout.h"

namespace folvane {

/// What a transfer would do with the values that are entered for the shared archive number, in words: how many records
/// go, into which volume, and the number of the first one as far as it is known before.
/// @param destination the table that they go to
/// @param entered     the fields of its archive number
/// @param records     how many are ticked @throws DataError
QString ForecastText(const QString& destination, const ShownFields& entered, int records);

}  // namespace folvane
