#pragma once

#include "data/persist/Tablegram.h"

namespace folvane {

/// The size of a value of a type that has one, in bytes; -1 for texts, bytes, numbers without a given size, and types
/// that no file has.
int GivenSize(const ColumnDescriptor& column);

/// How the values of a column lie in a row.
/// @throws FileError, with the offset given, for a type that is not known or a column whose rows would take no room
ValueLayout LayoutOf(const ColumnDescriptor& column, std::size_t offset);

}  // namespace folvane
