#pragma once

#include <QString>

namespace folvane {

class RecordListModel;

/// The field that an order text starts with.
QString OrderField(const QString& order);

/// A caption without the arrows that show a direction.
QString WithoutArrows(const QString& caption);

/// What a click on a column makes of the order: a new column sorts ascending, the same one again descending, and so it
/// stays with every further click.
QString OrderAfterClick(const RecordListModel& list, int column, const QString& order);

/// Marks the column by which a click has sorted: the arrow of its direction stands before its caption, and no longer
/// before that of the order before.
void MarkOrder(RecordListModel& list, int column, const QString& before, const QString& order);

}  // namespace folvane
