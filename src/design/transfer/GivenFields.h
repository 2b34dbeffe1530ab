#pragma once

#include <QString>

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// Why a link to a field of the destination has no use or does harm: the transfer itself gives the field its value, the
/// key, the archive number or a part of it. "" for a field that a link may fill.
/// @param format of the destination, null where it has none
QString GivenByTransfer(const QString& field, const BusinessTable& destination, const NumberFormat* format);

/// Whether the running number of the format is counted on, by the type of its field.
bool IsCounted(const NumberFormat& format, const BusinessTable& table);

}  // namespace folvane::transfer
