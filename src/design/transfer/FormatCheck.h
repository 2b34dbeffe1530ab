#pragma once

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Finding.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// What is wrong with a part of an archive number, counted from 0. @throws DataError
Findings CheckPart(const NumberFormat& format, std::size_t part, BusinessTables& tables);

/// What is wrong with the format as such: where the number is stored, and whether it fits. @throws DataError
Findings CheckFormat(const NumberFormat& format, BusinessTables& tables);

/// The gravest of both. @throws DataError
Severity WorstOfFormat(const NumberFormat& format, BusinessTables& tables);

}  // namespace folvane::transfer
