#pragma once

#include <QString>

#include "catalogue/TreeRows.h"
#include "data/Recordset.h"
#include "records/ClassTreeModel.h"
#include "records/TableParameters.h"

namespace folvane {

/// Builds the class tree from the design tables: classes at once, the tables of a class when it is first opened. Each
/// table node gets a row of the parameter list with the rights, the order and the archive target read for it.
///
/// A design row that would put a node below itself is left out: it has no place in a tree.
class ClassTreeBuilder {
 public:
  ClassTreeBuilder(ClassTreeModel& tree, TableParameters& parameters) : tree_(tree), parameters_(parameters) {}

  /// Starts over: the root and all classes.
  void BuildRoot();
  /// Adds the tables of a class below a node; with a parent table those that hang under it.
  void AddTableNodes(int parent, const QString& classId, const QString& parentTable);
  /// Adds the tables of a class node that has no children yet.
  void OpenClass(int node);
  /// Adds second-level nodes when the table's grouping field asks for them; the node's image becomes "Cent1".
  void GroupTable(int node);
  /// Lets go of what is held open for the targets of the tables.
  void Close() { transfers_.Close(); }

 private:
  void AddClassNodes(int parent, const QString& classParent);
  void AddTable(int parent, const QString& classId, const QString& parentTable, const TableRelationRow& table);
  void AddSecondLevelNodes(int parent, const QString& table, const QString& field);
  QString TargetOf(const QString& table);

  ClassTreeModel& tree_;
  TableParameters& parameters_;
  Recordset transfers_;
};

/// The table of a table node or of a second-level node, whose key goes on behind the first "-".
QString TableOfNode(const ClassTreeNode& node);

}  // namespace folvane
