#pragma once

#include <QString>

class QTreeView;

namespace folvane {

class ListStatus;
class RecordList;
class TableParameters;

/// The commands that add, change and delete records.
class RecordCommands {
 public:
  /// @param tree its current node names the table in the entry window
  RecordCommands(RecordList& list, TableParameters& parameters, const QTreeView& tree, ListStatus& status)
      : list_(list), parameters_(parameters), tree_(tree), status_(status) {}

  void Add();
  void Change();
  /// Deletes the selected records with their originals. An error ends it; the status line tells.
  void Delete();
  /// Sends the selected records into a flow, one after the other; one that is gone ends it.
  void HandToFlow(const QString& flowTable);

 private:
  void OpenEntry(const QString& addOnOpen);
  void DeleteSelected();

  RecordList& list_;
  TableParameters& parameters_;
  const QTreeView& tree_;
  ListStatus& status_;
};

}  // namespace folvane
