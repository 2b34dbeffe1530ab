#include "data/persist/PersistedRecords.h"

namespace folvane {

bool PersistedRecords::Next(PersistedRecord& record) {
  if (!more_) return false;
  record.state = ahead_.kind == TablegramRow::Insertion ? PersistedRecord::Inserted : PersistedRecord::Unchanged;
  record.set = ahead_.set;
  record.cells.swap(ahead_.cells);
  Advance();
  if (record.state == PersistedRecord::Unchanged && more_ && ahead_.kind == TablegramRow::Change) TakeChange(record);
  if (more_ && ahead_.kind == TablegramRow::Deletion) {
    if (record.state == PersistedRecord::Changed) record.cells.swap(record.original);
    record.state = PersistedRecord::Deleted;
    Advance();
  }
  return true;
}

void PersistedRecords::TakeChange(PersistedRecord& record) {
  record.state = PersistedRecord::Changed;
  record.original = record.cells;
  for (std::size_t i = 0; i < record.cells.size(); ++i)
    if (ahead_.cells[i].state != TablegramCell::Untouched) record.cells[i] = ahead_.cells[i];
  Advance();
}

}  // namespace folvane
