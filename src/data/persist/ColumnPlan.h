#pragma once

#include "data/Schema.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// The descriptor that ADO writes for a field of a record set which is nobody's table: type, size and flags as its
/// Fields.Append makes them. A numeric column's digits are still to be found out.
ColumnDescriptor DescribeForFile(const ColumnInfo& column, int ordinal);

/// What a column can be instead when its values do not fit, the closest one first and, at the end, a text of any length
/// that holds every value.
std::vector<ColumnDescriptor> OtherDescriptors(const ColumnDescriptor& column);

/// A head for one record set of these columns, as ADO writes it. @throws FileError without columns
Tablegram FlatTablegram(std::vector<ColumnDescriptor> columns, std::size_t rowCount);

}  // namespace folvane
