#pragma once

#include <QList>
#include <QStandardItemModel>
#include <functional>
#include <memory>

#include "widgets/RecordListView.h"

class QMimeData;

namespace folvane {

/// A list of fields whose rows go over to a list beside it, or to another row of the same list: by the routines here,
/// and by dragging. Several rows can be selected; a move keeps their order.
class FieldListView : public RecordListView {
  Q_OBJECT

 public:
  FieldListView(const QString& name, const QStringList& captions, QWidget* parent);

  /// The list that rows are dragged from and to beside this one.
  void SetPartner(FieldListView& partner);
  /// Is given the first cell of each row that comes in, from the other list or anew.
  void OnArrival(std::function<void(QStandardItem&)> dress) { dress_ = std::move(dress); }

  int Count() const { return rows_->rowCount(); }
  QString Cell(int row, int column = 0) const { return rows_->item(row, column)->text(); }
  QStandardItem& First(int row) const { return *rows_->item(row); }
  QStandardItemModel& Rows() const { return *rows_; }

  /// Adds a row at the end.
  void Append(const QStringList& cells);
  void Clear();
  /// The selected rows in their order.
  QList<int> Selected() const;

  /// Moves the selected rows, or all, to the end of the other list. What follows them here is selected next.
  void MoveSelectedTo(FieldListView& target);
  void MoveAllTo(FieldListView& target);
  /// Swaps the current row, if it is selected, with its neighbour above (-1) or below (1).
  void Swap(int step);
  /// Removes the selected rows. What follows them is selected next.
  void RemoveSelected();

  /// What a drag of the selected rows carries; for this list and its partner only.
  std::unique_ptr<QMimeData> Dragged();

 Q_SIGNALS:
  /// A row came or went.
  void CountChanged();

 protected:
  /// Alt with the arrow up or down swaps where rows can be dragged.
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void startDrag(Qt::DropActions actions) override;

 private:
  void SelectRow(int row);
  /// Moves rows before a row of the target. Answers the row of the first of them, which is another one than asked for
  /// where rows before it have gone.
  int MoveRows(const QList<int>& rows, FieldListView& target, int before);
  /// The list that the event brings rows of, nullptr when they are not for this one.
  FieldListView* SourceOf(const QDropEvent& event) const;
  int RowUnder(const QDropEvent& event) const;

  QStandardItemModel* rows_;
  FieldListView* partner_ = nullptr;
  std::function<void(QStandardItem&)> dress_;
};

}  // namespace folvane
