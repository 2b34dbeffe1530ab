#pragma once

#include <QStringList>

class QAbstractItemModel;
class QAbstractItemView;

namespace folvane {

// Which records the rows of a list name. The last column of every list is the record's key.

/// The records of the selected rows, in the order of the list.
QStringList SelectedRecords(const QAbstractItemView& list);

/// The records of the ticked rows, in the order of their tick numbers, which the first column shows. A number up to
/// `count` that no ticked row has is passed over.
QStringList TickedRecords(const QAbstractItemModel& list, int count);

}  // namespace folvane
