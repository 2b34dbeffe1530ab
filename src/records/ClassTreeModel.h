#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

namespace folvane {

/// The image names of tree nodes. The name is the node's kind: what a choice of the node does follows from it.
namespace NodeImage {
inline const QString Close = QStringLiteral("CLOSE");  ///< the root and the classes
inline const QString Table = QStringLiteral("Table");  ///< a table
inline const QString Cent1 = QStringLiteral("Cent1");  ///< a table with second-level nodes
inline const QString Cent = QStringLiteral("Cent");    ///< a second-level node: a year, a document word
}  // namespace NodeImage

struct ClassTreeNode {
  QString key, text, image;
  QVariant tag;
  int parent = 0;  ///< 0 for the root
  std::vector<int> children;
};

/// The class tree. Nodes are known by an index that counts from 1 in the order they came and never changes; the root
/// is 1. Display role is the text, Qt::UserRole the key, + 1 the image name, + 2 the tag.
class ClassTreeModel : public QAbstractItemModel {
 public:
  using QAbstractItemModel::QAbstractItemModel;

  void Clear();
  /// Adds a child at the end of the parent's children and gives its index; parent 0 adds the root.
  int AddNode(int parent, const QString& key, const QString& text, const QString& image, const QVariant& tag = {});
  /// Takes a last child away again, with what came after it below it.
  void RemoveFrom(int index);
  int Count() const { return int(nodes_.size()); }
  const ClassTreeNode& Node(int index) const { return nodes_.at(size_t(index) - 1); }
  void SetImage(int index, const QString& image);
  void SetTag(int index, const QVariant& tag);
  /// The first node of that key, without regard to case; 0 when there is none.
  int Find(const QString& key) const;
  /// Whether the node or one above it has that key: a row of the design that would close a circle.
  bool StandsOnPath(int index, const QString& key) const;

  int NodeAt(const QModelIndex& index) const { return index.isValid() ? int(index.internalId()) : 0; }
  QModelIndex IndexOf(int node) const;
  /// What the decoration role shows for an image name.
  void SetDecoration(std::function<QVariant(const QString& image)> decoration) { decoration_ = std::move(decoration); }

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<ClassTreeNode> nodes_;
  std::function<QVariant(const QString&)> decoration_;
};

}  // namespace folvane
