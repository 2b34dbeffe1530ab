#pragma once

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Finding.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// What is wrong with a field of a set, counted from 0. @throws DataError
Findings CheckLink(const Settings& settings, const TransferSet& set, std::size_t link, BusinessTables& tables);

/// What is wrong with a set as such, and how many of its fields have something wrong. @throws DataError
Findings CheckSet(const Settings& settings, std::size_t set, BusinessTables& tables);

}  // namespace folvane::transfer
