#pragma once

#include <folvane/Connection.h>

namespace folvane::demo {

/// Adds the rows of the small design tables, each from the data file of its name: the first line names the columns,
/// "null" is a null.
void WriteFixedRows(Connection& connection);

/// Adds the dictionaries and their entries; the agencies that write to the office are the entries of 来文单位.
void WriteDictionaries(Connection& connection);

}  // namespace folvane::demo
