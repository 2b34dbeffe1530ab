#pragma once

#include <QString>
#include <optional>

namespace folvane {

class ListStatus;
class RecordList;

/// The commands that exchange records with other installations by files.
class ExchangeCommands {
 public:
  ExchangeCommands(RecordList& list, ListStatus& status) : list_(list), status_(status) {}

  /// Saves the records in view to a file. An error ends it; the status line tells.
  void Save();
  /// Adds the records of a file that the table lacks, and shows the first. An error ends it and nothing is added; the
  /// status line tells.
  void Open();

 private:
  std::optional<qint64> Import(const QString& path);

  RecordList& list_;
  ListStatus& status_;
};

}  // namespace folvane
