#pragma once

#include <QString>

namespace folvane {

class RecordListModel;

/// The field that an order text starts with.
QString OrderField(const QString& order);

/// Whether an order is the plain one by the key of the records, or has that in it: it is no choice of the user then.
bool OrdersByKey(const QString& order);

/// A caption without the arrows that show a direction.
QString WithoutArrows(const QString& caption);

/// What a click on a column makes of the order: a new column sorts ascending, the same one again descending, and so it
/// stays with every further click.
QString OrderAfterClick(const RecordListModel& list, int column, const QString& order);

/// Marks the column by which a click has sorted: the arrow of its direction stands before its caption, and no longer
/// before that of the order before.
void MarkOrder(RecordListModel& list, int column, const QString& before, const QString& order);
/// Takes the arrows from all captions, for an order that no click gave.
void UnmarkOrder(RecordListModel& list);

/// The order that the current user has kept for a table. A table without one gets "ArchiveId Desc" and a row for it.
QString ReadDefaultOrder(const QString& table);

/// Keeps the order of a table for the current user.
void SaveOrder(const QString& table, const QString& order);
/// The same for a caller that knows whether the user has none for the table yet.
void StoreOrder(const QString& table, const QString& order, bool isNew);

}  // namespace folvane
