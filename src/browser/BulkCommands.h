#pragma once

#include <QString>

#include "browser/BrowserParts.h"

namespace folvane {

class RecordListPart;

/// The commands that change many records of the table at once.
class BulkCommands {
 public:
  BulkCommands(const BrowserParts& parts, RecordListPart& list) : parts_(parts), list_(list) {}

  /// Deletes the records of a compound query with their originals, whether the user may see them or not. Beside the
  /// question stands how many they are. An error ends it; the status line tells.
  void Delete();
  /// Replaces a value in many records.
  void Update();

 private:
  void DeleteQueried();
  qint64 DeleteWhere(const QString& condition);

  BrowserParts parts_;
  RecordListPart& list_;
};

}  // namespace folvane
