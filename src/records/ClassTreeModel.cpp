#include "records/ClassTreeModel.h"

#include <algorithm>

#include "widgets/PlainTip.h"

namespace folvane {

void ClassTreeModel::Clear() {
  beginResetModel();
  nodes_.clear();
  endResetModel();
}

int ClassTreeModel::AddNode(int parent, const QString& key, const QString& text, const QString& image,
                            const QVariant& tag) {
  const int row = parent == 0 ? 0 : int(Node(parent).children.size());
  const int added = Count() + 1;
  beginInsertRows(IndexOf(parent), row, row);
  nodes_.push_back({key, text, image, tag, parent, {}});
  if (parent != 0) nodes_[size_t(parent) - 1].children.push_back(added);
  endInsertRows();
  return added;
}

void ClassTreeModel::RemoveFrom(int index) {
  const int above = Node(index).parent;
  std::vector<int>& siblings = nodes_[size_t(above) - 1].children;
  const int row = int(siblings.size()) - 1;
  beginRemoveRows(IndexOf(above), row, row);
  siblings.pop_back();
  nodes_.resize(size_t(index) - 1);
  endRemoveRows();
}

void ClassTreeModel::SetImage(int index, const QString& image) {
  nodes_.at(size_t(index) - 1).image = image;
  Q_EMIT dataChanged(IndexOf(index), IndexOf(index), {Qt::DecorationRole, Qt::UserRole + 1});
}

void ClassTreeModel::SetTag(int index, const QVariant& tag) {
  nodes_.at(size_t(index) - 1).tag = tag;
  Q_EMIT dataChanged(IndexOf(index), IndexOf(index), {Qt::UserRole + 2});
}

int ClassTreeModel::Find(const QString& key) const {
  const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const ClassTreeNode& node) {
    return node.key.compare(key, Qt::CaseInsensitive) == 0;
  });
  return found == nodes_.end() ? 0 : int(found - nodes_.begin()) + 1;
}

bool ClassTreeModel::StandsOnPath(int index, const QString& key) const {
  for (; index != 0; index = Node(index).parent) {
    if (Node(index).key.compare(key, Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

QModelIndex ClassTreeModel::IndexOf(int node) const {
  if (node == 0) return {};
  const int above = Node(node).parent;
  if (above == 0) return createIndex(0, 0, quintptr(node));
  const std::vector<int>& siblings = Node(above).children;
  const auto found = std::find(siblings.begin(), siblings.end(), node);
  return createIndex(int(found - siblings.begin()), 0, quintptr(node));
}

QModelIndex ClassTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
  const int node = parent.isValid() ? Node(NodeAt(parent)).children.at(size_t(row)) : 1;
  return createIndex(row, column, quintptr(node));
}

QModelIndex ClassTreeModel::parent(const QModelIndex& child) const {
  return child.isValid() ? IndexOf(Node(NodeAt(child)).parent) : QModelIndex();
}

int ClassTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return nodes_.empty() ? 0 : 1;
  return int(Node(NodeAt(parent)).children.size());
}

int ClassTreeModel::columnCount(const QModelIndex&) const { return 1; }

QVariant ClassTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ClassTreeNode& node = Node(NodeAt(index));
  switch (role) {
    case Qt::DisplayRole:
      return node.text;
    case Qt::ToolTipRole:
      return PlainTip(node.text);
    case Qt::DecorationRole:
      return decoration_ ? decoration_(node.image) : QVariant();
    case Qt::UserRole:
      return node.key;
    case Qt::UserRole + 1:
      return node.image;
    case Qt::UserRole + 2:
      return node.tag;
    default:
      return {};
  }
}

}  // namespace folvane
