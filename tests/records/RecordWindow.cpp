#include "records/RecordWindow.h"

#include <QHeaderView>
#include <QMenu>

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

QStringList RecordWindow::Column(const QString& view, int column) const {
  const QAbstractItemModel& model = *View(view).model();
  QStringList texts;
  for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, column).data().toString();
  return texts;
}

QStringList RecordWindow::Captions() const {
  const QAbstractItemModel& model = *List().model();
  QStringList captions;
  for (int column = 0; column < model.columnCount(); ++column) {
    captions << model.headerData(column, Qt::Horizontal).toString();
  }
  return captions;
}

QModelIndex RecordWindow::Node(const QString& key) const {
  const QAbstractItemModel& model = *View(tree_).model();
  const QModelIndexList found = model.match(model.index(0, 0), Qt::UserRole, key, 1,
                                            Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
  if (found.isEmpty()) throw std::runtime_error("no node " + key.toStdString());
  return found.first();
}

QStringList RecordWindow::KeysBelow(const QString& key) const {
  const QModelIndex node = Node(key);
  QStringList keys;
  for (int row = 0; row < node.model()->rowCount(node); ++row) {
    keys << node.model()->index(row, 0, node).data(Qt::UserRole).toString();
  }
  return keys;
}

void RecordWindow::Choose(const QString& key) const { ClickItem(View(tree_), Node(key)); }

QString RecordWindow::Parameter(const QString& table, int number) const {
  const QAbstractItemModel& model = *View(u"LV_Para"_s).model();
  for (int row = 0; row < model.rowCount(); ++row) {
    if (model.index(row, 0).data().toString() == table) return model.index(row, number).data().toString();
  }
  return u"<no row>"_s;
}

QAction& RecordWindow::Entry(const QString& name) const {
  for (QAction* action : window_.findChildren<QAction*>(name)) {
    if (qobject_cast<QMenu*>(action->parent())) return *action;
  }
  throw std::runtime_error("no menu entry " + name.toStdString());
}

void RecordWindow::ClickColumn(int column) const {
  QHeaderView& header = *List().header();
  const int middle = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
  ClickAt(*header.viewport(), QPoint(middle, header.height() / 2));
}

}  // namespace folvane::test
