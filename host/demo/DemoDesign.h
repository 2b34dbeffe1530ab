#pragma once

#include <folvane/Design.h>

namespace folvane::demo {

/// The design of the demo: ready-made designs, and what only the demo has in data/demo.yaml. The agencies that write to
/// the office are the entries of 来文单位.
Design DemoDesign();

/// Makes the tables of a design, and writes what the design tables say of them.
/// @throws DataError also where one of the tables is there already
void MakeTables(Connection& connection, const Design& design);

/// Makes the indexes that the demo has besides those of its design: they wait until the rows are in. @throws DataError
void MakeIndexes(Connection& connection);

/// Drops the tables of a design. @throws DataError
void DropTables(Connection& connection, const Design& design);

}  // namespace folvane::demo
