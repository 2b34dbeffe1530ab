#pragma once

#include "base/CodePage.h"
#include "data/FetchedRows.h"

namespace folvane {

/// The fields and rows of a persisted record set, with the states that the rows were saved in. Columns that are hidden
/// are left out. A truth value is 1 or 0, a date a text, an exact number a text where it is not whole.
/// @throws FileError for bytes that are no such record set or a broken one, and for one with child record sets
FetchedRows LoadTablegram(QByteArrayView content, CodePageReader& codePage);

}  // namespace folvane
