#pragma once

#include <QStringList>
#include <vector>

#include <folvane/ArchiveRules.h>

#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// The first parts of a number with their values, as a transfer composes them. A length that is none makes no piece.
std::vector<NumberField> NumberFieldsOf(const NumberFormat& format, std::size_t count, const QStringList& values);

/// The most bytes of the national code page that the first parts of a number take together.
int LengthOf(const NumberFormat& format, std::size_t parts);

}  // namespace folvane::transfer
