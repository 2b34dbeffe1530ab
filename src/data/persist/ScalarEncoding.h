#pragma once

#include <QByteArray>

#include "data/RowStore.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Puts a number, or a text that reads as one, into a buffer as a column of a type of numbers holds it. False when the
/// column would not give the same number back.
bool EncodeNumberValue(const Cell& cell, const ColumnDescriptor& column, QByteArray& buffer);

/// Puts a date or a time, told as a text, into a buffer as a column of a type of dates holds it. False when the column
/// would not give the same one back.
bool EncodeMomentValue(const Cell& cell, int type, QByteArray& buffer);

}  // namespace folvane
