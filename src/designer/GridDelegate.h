#pragma once

#include <QStyledItemDelegate>

namespace folvane::designer {

/// Edits the cells of a GridModel in place: texts in a box, choices in a list that drops down.
class GridDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};

}  // namespace folvane::designer
