#pragma once

#include <QString>
#include <functional>

#include "records/ClassTreeBuilder.h"
#include "records/ClassTreeModel.h"

class QTreeView;

namespace folvane {

class ChoiceRelay;
class TableParameters;
class ViewHint;

/// The class tree in a view: its nodes with their pictures, which one is chosen, and what to say while it has none.
class ClassTree {
 public:
  /// Gives the view its model.
  /// @param chosen is told the node that the user chooses; its errors are shown
  ClassTree(QTreeView& view, TableParameters& parameters, TableNodes kind, std::function<void(int node)> chosen);

  /// Builds root and classes and opens the root. @throws DataError
  void Build();
  /// Adds the tables of a class node that lacks them, and opens it. @throws DataError
  void OpenClass(int node);
  /// The same for all classes, without opening any.
  void AddAllTables();
  void Expand(int node);
  /// Adds the tables of the class of that id, which need not be in the tree.
  void AddTablesOfClass(const QString& classId);

  /// Makes a node the current one, with the classes above it open, without telling.
  void Select(int node);
  /// The same for a node whose classes are open.
  void SelectShown(int node);

  /// The node that is current, 0 for none.
  int Current() const;
  const ClassTreeNode& Node(int node) const { return model_.Node(node); }
  int Count() const { return model_.Count(); }
  ClassTreeBuilder& Builder() { return builder_; }
  /// What the user can choose next while no table is in view.
  QString ChoiceHint() const;

 private:
  QTreeView& view_;
  ClassTreeModel model_;
  ClassTreeBuilder builder_;
  ChoiceRelay* choice_;
  ViewHint* hint_;
};

}  // namespace folvane
