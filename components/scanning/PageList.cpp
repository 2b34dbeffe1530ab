#include "components/scanning/PageList.h"

#include <QDropEvent>
#include <QTransform>

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPathRole = Qt::UserRole, kQuartersRole = Qt::UserRole + 1, kPreviewRole = Qt::UserRole + 2;
constexpr QSize kThumbnail(120, 150);

QImage Turned(const QListWidgetItem& item) {
  const QImage preview = item.data(kPreviewRole).value<QImage>();
  return preview.transformed(QTransform().rotate(90.0 * item.data(kQuartersRole).toInt()));
}

void ShowThumbnail(QListWidgetItem& item) {
  item.setIcon(QPixmap::fromImage(Turned(item).scaled(kThumbnail, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

}  // namespace

PageList::PageList(QWidget* parent) : QListWidget(parent) {
  setViewMode(QListView::IconMode);
  setMovement(QListView::Snap);
  setDragDropMode(QAbstractItemView::InternalMove);
  setResizeMode(QListView::Adjust);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setIconSize(kThumbnail);
  setGridSize(kThumbnail + QSize(20, 36));
  setUniformItemSizes(true);
  connect(this, &QListWidget::currentRowChanged, this, [this] { changed(); });
}

void PageList::Add(const ScannedPage& page, const QImage& preview) {
  auto* item = new QListWidgetItem(this);
  item->setData(kPathRole, page.path);
  item->setData(kQuartersRole, page.quarters);
  item->setData(kPreviewRole, preview);
  item->setTextAlignment(Qt::AlignHCenter);
  ShowThumbnail(*item);
  Number();
  setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
  scrollToItem(item);
}

void PageList::DropSelected() {
  const int row = currentRow();
  qDeleteAll(selectedItems());
  Number();
  setCurrentRow(qMin(row, count() - 1), QItemSelectionModel::ClearAndSelect);
  changed();
}

void PageList::TurnSelected(int quarters) {
  for (QListWidgetItem* item : selectedItems()) {
    item->setData(kQuartersRole, (item->data(kQuartersRole).toInt() + quarters) % 4);
    ShowThumbnail(*item);
  }
  changed();
}

void PageList::MoveCurrent(int places) {
  const int from = currentRow(), to = from + places;
  if (from < 0 || to < 0 || to >= count()) return;
  QListWidgetItem* item = takeItem(from);
  insertItem(to, item);
  Number();
  setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
  changed();
}

// The view moves pictures about but leaves the rows: the page goes before the one it was dropped on.
void PageList::dropEvent(QDropEvent* event) {
  const QModelIndex target = indexAt(event->position().toPoint());
  const int from = currentRow(), to = target.isValid() ? target.row() : count() - 1;
  event->setDropAction(Qt::IgnoreAction);
  event->accept();
  if (from >= 0) MoveCurrent(to - from);
}

QList<ScannedPage> PageList::Pages() const {
  QList<ScannedPage> pages;
  for (int row = 0; row < count(); ++row)
    pages << ScannedPage{item(row)->data(kPathRole).toString(), item(row)->data(kQuartersRole).toInt()};
  return pages;
}

QImage PageList::Preview() const {
  const QListWidgetItem* current = currentItem();
  return current ? Turned(*current) : QImage();
}

void PageList::Number() {
  for (int row = 0; row < count(); ++row) item(row)->setText(u"第 %1 页"_s.arg(row + 1));
}

}  // namespace folvane::scanning
