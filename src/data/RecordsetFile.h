#pragma once

#include <QString>

#include "data/FetchedRows.h"

namespace folvane {

class RecordsetState;

/// Writes the rows in view, in their order, to a file as ADO persists them in its ADTG format; changes that wait are
/// kept as such. A column that does not hold one of its values as declared gets a type or a length that does, so that
/// nothing is lost. @throws FileError; the file then stays as it was
void SaveRecordset(const RecordsetState& state, const QString& path);

/// Reads such a file. @throws FileError when it cannot be read, is none or is broken; DataError Usage for a code page
/// that is not known
FetchedRows LoadRecordset(const QString& path, int codePage);

}  // namespace folvane
