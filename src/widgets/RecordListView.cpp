#include "widgets/RecordListView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

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

}  // namespace folvane
