#include "components/originals/FileList.h"

#include <QDataStream>
#include <QDropEvent>
#include <QIODevice>
#include <QMimeData>

#include "components/originals/OfferedFiles.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kRows = u"application/x-folvane-rows"_s;

/// Says what may be dragged and dropped; what a drop does is the list's matter.
class DroppableItems : public QStandardItemModel {
 public:
  using QStandardItemModel::QStandardItemModel;

  QStringList mimeTypes() const override { return OfferedTypes() << kRows; }
  Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
  bool canDropMimeData(const QMimeData*, Qt::DropAction, int, int, const QModelIndex&) const override { return true; }
  QMimeData* mimeData(const QModelIndexList& cells) const override {
    QByteArray rows;
    QDataStream stream(&rows, QIODevice::WriteOnly);
    for (const QModelIndex& cell : cells)
      if (cell.column() == 0) stream << qint32(cell.row());
    auto* data = new QMimeData;
    data->setData(kRows, rows);
    return data;
  }
};

std::vector<int> RowsIn(const QMimeData& data) {
  std::vector<int> rows;
  QDataStream stream(data.data(kRows));
  for (qint32 row = 0; !(stream >> row, stream.status() != QDataStream::Ok);) rows.push_back(row);
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace

FileList::FileList(QWidget* parent, const QStringList& captions)
    : QTreeView(parent), items_(new DroppableItems(0, int(captions.size()), this)) {
  items_->setHorizontalHeaderLabels(captions);
  setModel(items_);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(EditKeyPressed);
  setDragDropOverwriteMode(false);
  setAcceptDrops(true);
  setDropIndicatorShown(true);
}

std::vector<int> FileList::SelectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& cell : selectionModel()->selectedRows()) rows.push_back(cell.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

void FileList::SelectRows(const std::vector<int>& rows) {
  QItemSelection selection;
  for (const int row : rows) selection.select(items_->index(row, 0), items_->index(row, items_->columnCount() - 1));
  if (!rows.empty()) selectionModel()->setCurrentIndex(items_->index(rows.front(), 0), QItemSelectionModel::NoUpdate);
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void FileList::EndEditing() {
  QWidget* editor = indexWidget(currentIndex());
  if (!editor) return;
  commitData(editor);
  closeEditor(editor, QAbstractItemDelegate::NoHint);
}

// The view would put the old text into an open editor whatever has changed, such as the picture beside it.
void FileList::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
  if (roles.isEmpty() || roles.contains(Qt::DisplayRole) || roles.contains(Qt::EditRole))
    QTreeView::dataChanged(first, last, roles);
  else
    viewport()->update();
}

// Always a copy: after a move the view would remove the rows that were dragged, another program its files.
void FileList::dropEvent(QDropEvent* event) {
  if (!event->possibleActions().testFlag(Qt::CopyAction)) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const QMimeData& data = *event->mimeData();
  if (data.hasFormat(kRows)) {
    if (event->source() == this || !event->source()) onMove(RowsIn(data), RowBefore(event->position().toPoint()));
  } else {
    onFiles(data);
  }
  stopAutoScroll();
  setState(NoState);
  viewport()->update();
}

int FileList::RowBefore(const QPoint& at) const {
  const QModelIndex under = indexAt(at);
  if (!under.isValid()) return items_->rowCount();
  return at.y() > visualRect(under).center().y() ? under.row() + 1 : under.row();
}

QStandardItem* FixedCell(const QString& text) {
  auto* cell = new QStandardItem(text);
  cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
  return cell;
}

}  // namespace folvane::originals
