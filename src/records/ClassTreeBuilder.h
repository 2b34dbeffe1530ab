#pragma once

#include <QSet>
#include <QString>

#include "catalogue/TreeRows.h"
#include "data/Recordset.h"
#include "records/ClassTreeModel.h"
#include "records/TableParameters.h"

namespace folvane {

/// Whether a table's node has the nodes of its groups below it: its years, its document words.
enum class TableNodes { Plain, Grouped };

/// Builds the class tree from the design tables: classes at once, the tables of a class when it is first opened. Each
/// table node gets a row of the parameter list with the rights, the order and the archive target read for it.
///
/// A design row that would put a node below itself is left out: a tree cannot hold it. A table whose parameters or
/// whose tables below it could not be read does not come into the tree; it is read again with the next opening of its
/// class.
class ClassTreeBuilder {
 public:
  ClassTreeBuilder(ClassTreeModel& tree, TableParameters& parameters, TableNodes kind = TableNodes::Grouped)
      : tree_(tree), parameters_(parameters), kind_(kind) {}

  /// Starts over: the root and all classes.
  void BuildRoot();
  /// Adds the tables of a class below a node; with a parent table those that hang under it. After an error the next
  /// call for the node goes on with the tables that are missing.
  void AddTableNodes(int parent, const QString& classId, const QString& parentTable);
  /// Adds the tables of a class node that has no children yet, or that lacks some because of an error.
  /// @return whether there was something to read
  bool OpenClass(int node);
  /// Whether an error has kept tables of a class from the tree.
  bool LacksTables(int node) const { return unfinished_.contains(node); }
  /// Adds second-level nodes when the table's grouping field asks for them; the node's image becomes "Cent1".
  void GroupTable(int node);
  /// Reads the archive targets of all tables again.
  void ReadTargets();
  /// Closes the record set that the targets of the tables are looked up in.
  void Close() { transfers_.Close(); }

 private:
  void AddClassNodes(int parent, const QString& classParent);
  void AddTable(int parent, const QString& classId, const QString& parentTable, const TableRelationRow& table);
  void ReadTable(int parent, const QString& classId, const QString& parentTable, const TableRelationRow& table);
  bool HasChild(int parent, const QString& key) const;
  void AddSecondLevelNodes(int parent, const QString& table, const QString& field);
  QString TargetOf(const QString& table);

  ClassTreeModel& tree_;
  TableParameters& parameters_;
  TableNodes kind_;
  Recordset transfers_;
  QSet<int> unfinished_;  ///< nodes whose tables could not be read to the end
};

/// The table of a table node or of a second-level node, whose key goes on behind the first "-".
QString TableOfNode(const ClassTreeNode& node);

}  // namespace folvane
