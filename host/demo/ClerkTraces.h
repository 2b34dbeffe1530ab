#pragma once

#include <folvane/Design.h>

namespace folvane::demo {

/// Writes what clerks have left in the design tables in the course of their work: proofing rules, saved queries, orders
/// of lists, and what was searched for. @throws DataError
void WriteClerkTraces(Connection& connection, const Design& design);

}  // namespace folvane::demo
