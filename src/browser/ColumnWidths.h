#pragma once

#include <QHash>
#include <QString>

namespace folvane {

/// The width in pixels of a list column that the design gives in list units, 1440 to the inch of 96 pixels.
int PixelsOfListUnits(int listUnits);

/// The widths that the user gave to the columns of a table's list, by field in upper case.
QHash<QString, int> ReadColumnWidths(const QString& table);
void SaveColumnWidths(const QString& table, const QHash<QString, int>& widths);

}  // namespace folvane
