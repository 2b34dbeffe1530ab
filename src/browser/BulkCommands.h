#pragma once

#include <QString>

namespace folvane {

class ListStatus;
class RecordList;
class TableParameters;

/// The commands that change many records of the table at once.
class BulkCommands {
 public:
  BulkCommands(RecordList& list, TableParameters& parameters, ListStatus& status)
      : list_(list), parameters_(parameters), status_(status) {}

  /// Deletes the records of a compound query with their originals, whether the user may see them or not. Beside the
  /// question stands how many they are. An error ends it; the status line tells.
  void Delete();
  /// Replaces a value in many records.
  void Update();

 private:
  void DeleteQueried();

  RecordList& list_;
  TableParameters& parameters_;
  ListStatus& status_;
};

}  // namespace folvane
