#pragma once

#include <QHash>
#include <QString>

class QWidget;

namespace folvane {

/// The width in pixels that a list gives to a column of that many twips.
int DesignedWidth(const QWidget& list, int twips);

/// The widths that the user gave to the columns of a table's list, by field in upper case.
QHash<QString, int> ReadColumnWidths(const QString& table);
void SaveColumnWidths(const QString& table, const QHash<QString, int>& widths);

}  // namespace folvane
