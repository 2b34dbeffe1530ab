#pragma once

#include <QStringList>

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"

namespace folvane {
class Connection;
}

namespace folvane::transfer {

/// A value that a part of a number might have, from what the database holds; 1 where nothing better is known.
/// @throws DataError
QString SampleValue(Connection& connection, const NumberFormat& format, std::size_t part, BusinessTables& tables);

/// The number that these values make, as a transfer composes it; without a folder's last part where that is asked for.
/// @throws DataError
QString ExampleNumber(const NumberFormat& format, const QStringList& values);
QString ExampleFolder(const NumberFormat& format, const QStringList& values);

}  // namespace folvane::transfer
