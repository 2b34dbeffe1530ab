#pragma once

#include <QString>
#include <QVariant>

#include "data/RowStore.h"
#include "data/Schema.h"

namespace folvane {

/// A field's value as text: "" for null, a date as YYYY-MM-DD, a time of day only where it is not midnight.
QString ValueText(const QVariant& value);

/// A stored cell as the value of its column: what a driver gives as text becomes the number or the date that the column
/// says, and stays text where it cannot.
QVariant DecodeCell(const Cell& cell, const ColumnInfo& column);

/// A value as a cell.
/// @param held keeps the bytes of one that has any, for as long as the cell is used
Cell CellOf(const QVariant& value, QByteArray& held);

/// A value as the column would hold it. Empty text is null for a number or a date.
/// @throws DataError Conversion
QVariant FitToColumn(const QVariant& value, const ColumnInfo& column);

/// A date as people and databases write it: 2002-03-04, 2002/3/4, 20020304, with or without a time. Invalid when none.
QDateTime ReadDateTime(const QString& text);

}  // namespace folvane
