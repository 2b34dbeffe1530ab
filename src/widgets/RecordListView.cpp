#include "widgets/RecordListView.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <algorithm>

#include "shell/EventGuard.h"

namespace folvane {
namespace {

constexpr int kRoomAboutText = 6;  // pixels, above and below together

class OneLineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale&) const override { return value.toString().simplified(); }
  // Lines of text alone would stand too close to be told apart at a glance.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return size.expandedTo(QSize(0, option.fontMetrics.height() + kRoomAboutText));
  }
};

}  // namespace

RecordListView::RecordListView(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setItemDelegate(new OneLineDelegate(this));
  header()->setMinimumSectionSize(1);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
}

void RecordListView::keyPressEvent(QKeyEvent* event) {
  bool taken = false;
  if (keyHandler_) RunGuarded([&] { taken = keyHandler_(event->key()); });
  if (!taken) QTreeView::keyPressEvent(event);
}

void RecordListView::SendKey(Qt::Key key) {
  setFocus();
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier), release(QEvent::KeyRelease, key, Qt::NoModifier);
  QCoreApplication::sendEvent(this, &press);
  QCoreApplication::sendEvent(this, &release);
}

void RecordListView::TickSelected() {
  const QModelIndex current = currentIndex().siblingAtColumn(0);
  const auto state = current.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked;
  QModelIndexList rows = selectionModel()->selectedRows();
  if (rows.isEmpty()) rows << current;
  std::sort(rows.begin(), rows.end());
  for (const QModelIndex& row : rows) model()->setData(row, state, Qt::CheckStateRole);
}

// A click on a box does not touch the selection.
void RecordListView::mouseReleaseEvent(QMouseEvent* event) {
  const QPersistentModelIndex box = indexAt(event->position().toPoint()).siblingAtColumn(0);
  const QVariant before = box.data(Qt::CheckStateRole);
  const int from = currentIndex().row();
  QTreeView::mouseReleaseEvent(event);
  const QVariant after = box.data(Qt::CheckStateRole);
  if (!event->modifiers().testFlag(Qt::ShiftModifier) || after == before || from < 0) return;
  for (int row = std::min(from, box.row()); row <= std::max(from, box.row()); ++row)
    model()->setData(model()->index(row, 0), after, Qt::CheckStateRole);
}

}  // namespace folvane
