#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <functional>
#include <vector>

class QMimeData;

namespace folvane::originals {

/// A list of files that others can be dropped onto, and whose rows can be dragged to another place.
class FileList : public QTreeView {
 public:
  FileList(QWidget* parent, const QStringList& captions);

  /// What was dropped holds files or an image. The program that it comes from waits for the end of this call.
  std::function<void(const QMimeData& dropped)> onFiles;
  /// The rows, in their order, shall stand before another one; before the number of rows for the end.
  std::function<void(const std::vector<int>& rows, int before)> onMove;

  QStandardItemModel& Items() const { return *items_; }
  /// In their order.
  std::vector<int> SelectedRows() const;
  void SelectRows(const std::vector<int>& rows);
  /// Puts what is being typed into its cell.
  void EndEditing();

 protected:
  void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
  void dropEvent(QDropEvent* event) override;

 private:
  int RowBefore(const QPoint& at) const;

  QStandardItemModel* items_;
};

/// A cell that is not edited.
QStandardItem* FixedCell(const QString& text);

}  // namespace folvane::originals
