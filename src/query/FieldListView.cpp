#include "query/FieldListView.h"

#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Rows on their way between lists of one window.
class DraggedRows : public QMimeData {
 public:
  explicit DraggedRows(FieldListView& source) : source(source) {
    // The view shows where rows would drop only for what its model could take.
    for (const QString& type : source.Rows().mimeTypes()) setData(type, {});
  }
  FieldListView& source;
};

QList<int> AllRows(const FieldListView& list) {
  QList<int> rows;
  for (int row = 0; row < list.Count(); ++row) rows << row;
  return rows;
}

}  // namespace

FieldListView::FieldListView(const QString& name, const QStringList& captions, QWidget* parent)
    : RecordListView(parent), rows_(new QStandardItemModel(0, int(captions.size()), this)) {
  setObjectName(name);
  rows_->setHorizontalHeaderLabels(captions);
  setModel(rows_);
  setAccessibleName(captions.front());
  setDragEnabled(true);
  setAcceptDrops(true);
  setDropIndicatorShown(true);
  setDefaultDropAction(Qt::MoveAction);
  header()->setStretchLastSection(true);
  connect(rows_, &QAbstractItemModel::rowsInserted, this, &FieldListView::CountChanged);
  connect(rows_, &QAbstractItemModel::rowsRemoved, this, &FieldListView::CountChanged);
}

void FieldListView::SetPartner(FieldListView& partner) {
  partner_ = &partner;
  partner.partner_ = this;
}

void FieldListView::Append(const QStringList& cells) {
  QList<QStandardItem*> row;
  for (const QString& cell : cells) {
    row << new QStandardItem(cell);
    row.back()->setDropEnabled(false);  // rows are dropped between rows
  }
  rows_->appendRow(row);
  if (dress_) dress_(*row.front());
}

void FieldListView::Clear() { rows_->removeRows(0, Count()); }

QList<int> FieldListView::Selected() const {
  QList<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows << index.row();
  std::sort(rows.begin(), rows.end());
  return rows;
}

void FieldListView::SelectRow(int row) {
  const QModelIndex index = rows_->index(std::min(row, Count() - 1), 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void FieldListView::MoveSelectedTo(FieldListView& target) {
  const QList<int> rows = Selected();
  if (rows.isEmpty()) return;
  MoveRows(rows, target, target.Count());
  target.scrollToBottom();
  SelectRow(rows.front());
}

void FieldListView::MoveAllTo(FieldListView& target) { MoveRows(AllRows(*this), target, target.Count()); }

// Rows are numbered anew as those before them go.
int FieldListView::MoveRows(const QList<int>& rows, FieldListView& target, int before) {
  QList<QList<QStandardItem*>> taken;
  int first = before;
  for (const int row : rows) {
    taken << rows_->takeRow(row - int(taken.size()));
    if (&target == this && row < before) --first;
  }
  for (int at = 0; at < taken.size(); ++at) {
    target.rows_->insertRow(first + at, taken[at]);
    if (&target != this && target.dress_) target.dress_(*taken[at].front());
  }
  return first;
}

void FieldListView::Swap(int step) {
  const int row = currentIndex().row(), neighbour = row + step;
  if (!selectionModel()->isSelected(currentIndex()) || neighbour < 0 || neighbour >= Count()) return;
  rows_->insertRow(neighbour, rows_->takeRow(row));
  SelectRow(neighbour);
}

void FieldListView::RemoveSelected() {
  const QList<int> rows = Selected();
  if (rows.isEmpty()) return;
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) rows_->removeRow(*row);
  SelectRow(rows.front());
}

void FieldListView::keyPressEvent(QKeyEvent* event) {
  const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (arrow && event->modifiers().testFlag(Qt::AltModifier) && dragEnabled())
    return Swap(event->key() == Qt::Key_Up ? -1 : 1);
  RecordListView::keyPressEvent(event);
}

std::unique_ptr<QMimeData> FieldListView::Dragged() { return std::make_unique<DraggedRows>(*this); }

// The rows are moved where they are dropped; the list that they leave has nothing to do then.
void FieldListView::startDrag(Qt::DropActions) {
  if (Selected().isEmpty()) return;
  auto* drag = new QDrag(this);
  drag->setMimeData(Dragged().release());
  drag->setPixmap(viewport()->grab(visualRect(currentIndex())));
  drag->exec(Qt::MoveAction);
}

FieldListView* FieldListView::SourceOf(const QDropEvent& event) const {
  const auto* dragged = dynamic_cast<const DraggedRows*>(event.mimeData());
  return dragged && (&dragged->source == this || &dragged->source == partner_) ? &dragged->source : nullptr;
}

void FieldListView::dragEnterEvent(QDragEnterEvent* event) {
  RecordListView::dragEnterEvent(event);
  event->setAccepted(SourceOf(*event) != nullptr);
}

void FieldListView::dragMoveEvent(QDragMoveEvent* event) {
  RecordListView::dragMoveEvent(event);
  event->setAccepted(SourceOf(*event) != nullptr);
}

int FieldListView::RowUnder(const QDropEvent& event) const {
  const QModelIndex under = indexAt(event.position().toPoint());
  if (!under.isValid()) return Count();
  const bool below = dropIndicatorPosition() == BelowItem;
  return under.row() + (below ? 1 : 0);
}

void FieldListView::dropEvent(QDropEvent* event) {
  FieldListView* source = SourceOf(*event);
  if (!source) return event->ignore();
  const QList<int> rows = source->Selected();
  const int first = source->MoveRows(rows, *this, RowUnder(*event));
  selectionModel()->clearSelection();
  for (int row = first; row < first + rows.size(); ++row)
    selectionModel()->setCurrentIndex(rows_->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  event->setDropAction(Qt::MoveAction);
  event->accept();
  setState(NoState);
  viewport()->update();
}

}  // namespace folvane
