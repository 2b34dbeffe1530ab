#pragma once

#include <QString>

namespace folvane {

class RecordListModel;

/// Gives a list the columns that the design has for a table, and as the last one the hidden column of the record's key.
/// Rows that the list had are gone.
void BuildColumns(RecordListModel& list, const QString& table);

}  // namespace folvane
