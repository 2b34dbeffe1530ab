#pragma once

#include "data/persist/TablegramReader.h"

namespace folvane {

/// A row of a file together with what became of it.
struct PersistedRecord {
  enum State { Unchanged, Changed, Inserted, Deleted };
  State state = Unchanged;
  int set = 0;
  std::vector<TablegramCell> cells;     ///< the values now; of a deleted row those that it had
  std::vector<TablegramCell> original;  ///< of a changed row the values before
};

/// Reads the rows of a file, each with the change or deletion that follows it.
class PersistedRecords {
 public:
  /// The reader stands ahead of its first row and must outlive this. @throws FileError
  explicit PersistedRecords(TablegramReader& reader) : reader_(reader) { Advance(); }

  /// False behind the last one. @throws FileError
  bool Next(PersistedRecord& record);

 private:
  void Advance() { more_ = reader_.Next(ahead_); }
  void TakeChange(PersistedRecord& record);

  TablegramReader& reader_;
  TablegramRow ahead_;
  bool more_ = false;
};

}  // namespace folvane
