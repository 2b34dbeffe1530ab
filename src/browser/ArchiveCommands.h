#pragma once

#include <QString>

namespace folvane {

class ListStatus;
class OriginalsView;
class RecordList;
class TableParameters;

/// The commands that bring records into the archive, or take them out of its way.
class ArchiveCommands {
 public:
  ArchiveCommands(RecordList& list, TableParameters& parameters, OriginalsView& originals, ListStatus& status)
      : list_(list), parameters_(parameters), originals_(originals), status_(status) {}

  /// Transfers the selected records into the table's archive table. @throws DataError
  void ToTarget();
  /// Opens the archive window on the table in view and reads the records again afterwards. @throws DataError
  void OpenWindow();
  /// Merges other records into the selected one. @throws DataError
  void Merge();

 private:
  QString TitleOfRecord() const;
  void ShowOriginalsAgain(const QString& key);

  RecordList& list_;
  TableParameters& parameters_;
  OriginalsView& originals_;
  ListStatus& status_;
};

}  // namespace folvane
