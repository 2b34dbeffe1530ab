#pragma once

#include <QString>
#include <functional>

#include "records/ClassTree.h"

class QTreeView;

namespace folvane {

class RecordList;
class TableParameters;

/// The table that a window returns to at its next start, and the condition that its list had. Kept as one text: the
/// table, and after the first comma the condition.
struct LastTable {
  QString table, filter;

  static LastTable FromText(const QString& text);
  QString ToText() const { return table + QLatin1Char(',') + filter; }
};

/// Goes to the table of a node of the class tree: to that of the last time at the start, then to the one that is
/// chosen.
class TableNavigation {
 public:
  /// What the window does on the way.
  struct Steps {
    std::function<void()> leave = {};  ///< lets go of what belongs to the table in view
    std::function<void()> enter = {};  ///< shows what belongs to the list's new table, or to a class where it has none
    std::function<void()> tell = {};   ///< tells what is in view now
    std::function<void()> stay = {};   ///< tells that the chosen table is in view already
  };

  /// Gives the view its model. Every step is called.
  TableNavigation(QTreeView& view, TableParameters& parameters, RecordList& list, Steps steps);

  /// The work of the first activation. @throws DataError
  void Start();
  /// Keeps the table for the next start and closes the record set that Start has opened.
  void End();

  /// Selects the node of a table and opens it, as a command does that goes to another table. An error is shown and ends
  /// it.
  void OpenTable(int parameterRow);
  /// Has a second-level node selected only while its condition is in force.
  void FollowFilter();

  /// Whether the table in view hangs under another one.
  bool HasParentTable() const;
  const ClassTree& Tree() const { return tree_; }

 private:
  void OpenLastTable();
  int BuildTablesFor(const QString& table);
  void ChooseNode(int node);
  void LimitToCurrentYear(int node);
  void OpenNode(int node);
  void OpenClass(int node);
  void ShowTable(int node);
  int NodeOfTable() const;

  TableParameters& parameters_;
  RecordList& list_;
  Steps steps_;
  ClassTree tree_;
  QString chosenFilter_;  ///< the condition of the second-level node that was chosen last
};

}  // namespace folvane
