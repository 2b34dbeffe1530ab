#pragma once

#include <QString>

namespace folvane {

class RecordListModel;

/// The field that an order text starts with.
QString OrderField(const QString& order);

/// A caption without the arrows that show a direction.
QString WithoutArrows(const QString& caption);

/// What a click on a column makes of the order: a new column sorts ascending, the same one again descending, and so it
/// stays with every further click. Puts the arrow of the direction in force before the column's caption.
/// @return the new order
QString ClickColumn(RecordListModel& list, int column, const QString& order);

}  // namespace folvane
