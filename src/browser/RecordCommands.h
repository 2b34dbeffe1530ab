#pragma once

#include <QString>

#include "browser/BrowserParts.h"

namespace folvane {

class RecordListPart;

/// The commands that add, change and delete records.
class RecordCommands {
 public:
  RecordCommands(const BrowserParts& parts, RecordListPart& list) : parts_(parts), list_(list) {}

  void Add();
  void Change();
  /// Deletes the selected records with their originals. An error ends it; the status line tells.
  void Delete();

 private:
  void OpenEntry(const QString& addOnOpen);
  void DeleteSelected();

  BrowserParts parts_;
  RecordListPart& list_;
};

}  // namespace folvane
