#include "components/transfer/SettingsList.h"

#include <QDropEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QTimer>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/PlainTip.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kMimeType = u"application/x-folvane-setting-"_s;  // and the kind
constexpr int kHintMargin = 16;

}  // namespace

/// Says of what is dragged what it is.
class SettingsList::Items : public QStandardItemModel {
 public:
  using QStandardItemModel::QStandardItemModel;
  QString kind;

  QStringList mimeTypes() const override { return {kMimeType + kind}; }
  QMimeData* mimeData(const QModelIndexList& cells) const override {
    if (cells.isEmpty()) return nullptr;
    auto* data = new QMimeData;
    data->setData(kMimeType + kind, cells[0].siblingAtColumn(0).data(Qt::UserRole).toString().toUtf8());
    return data;
  }
};

SettingsList::SettingsList(QWidget* parent, const QString& name, const QString& caption, const QStringList& columns)
    : QTreeView(parent), items_(new Items(0, int(columns.size()), this)) {
  setObjectName(name);
  setAccessibleName(caption);
  items_->setHorizontalHeaderLabels(columns);
  setModel(items_);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  header()->setStretchLastSection(true);
}

void SettingsList::SetHint(const QString& hint) {
  hint_ = hint;
  viewport()->update();
}

QList<QStandardItem*> SettingsList::CellsOf(const ListRow& row) const {
  QList<QStandardItem*> cells;
  for (const QString& text : row.cells) {
    auto* cell = new QStandardItem(text);
    cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    cell->setToolTip(components::PlainTip(text));
    QFont font = cell->font();
    font.setItalic(row.isProposal);
    cell->setFont(font);
    cells << cell;
  }
  cells.first()->setData(row.key, Qt::UserRole);
  if (row.isProposal) cells.last()->setIcon(Icon(u"replace"_s));
  if (row.findings.empty()) return cells;
  const QString text = TextOf(row.findings);
  cells.last()->setText(cells.last()->text().isEmpty() ? text : cells.last()->text() + u'；' + text);
  cells.last()->setIcon(IconOf(WorstOf(row.findings), *this));
  cells.last()->setToolTip(QString(cells.last()->text()).replace(u'；', u'\n'));
  return cells;
}

void SettingsList::Fill(const std::vector<ListRow>& rows) {
  const int row = Row();
  const QString key = Key();
  const bool wasKey = !key.isEmpty();
  {
    const QSignalBlocker silent(selectionModel());  // it is one row from here to there
    items_->removeRows(0, items_->rowCount());
    for (const ListRow& each : rows) items_->appendRow(CellsOf(each));
  }
  if (wasKey) GoToKey(key);
  if (Row() < 0) GoTo(std::min(std::max(row, 0), items_->rowCount() - 1));
  viewport()->update();
}

int SettingsList::Row() const { return currentIndex().isValid() ? currentIndex().row() : -1; }

QString SettingsList::Key() const { return currentIndex().siblingAtColumn(0).data(Qt::UserRole).toString(); }

void SettingsList::GoTo(int row) { setCurrentIndex(items_->index(row, 0)); }

void SettingsList::GoToKey(const QString& key) {
  for (int row = 0; row < items_->rowCount(); ++row)
    if (items_->item(row)->data(Qt::UserRole).toString().compare(key, Qt::CaseInsensitive) == 0) return GoTo(row);
}

void SettingsList::SetWidths(const std::vector<int>& units) {
  const int unit = QFontMetrics(font()).averageCharWidth();
  for (std::size_t column = 0; column < units.size(); ++column) setColumnWidth(int(column), unit * units[column]);
}

void SettingsList::DragAs(const QString& kind) {
  items_->kind = kind;
  setDragEnabled(true);
}

void SettingsList::TakeDrops(const QStringList& kinds,
                             std::function<void(const QString& kind, const QString& key, int row)> onDrop) {
  kinds_ = kinds;
  onDrop_ = std::move(onDrop);
  setAcceptDrops(true);
}

void SettingsList::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (items_->rowCount() > 0 || hint_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const QRect room = viewport()->rect().adjusted(kHintMargin, kHintMargin, -kHintMargin, -kHintMargin);
  painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

QString SettingsList::KindOf(const QDropEvent& event) const {
  for (const QString& kind : kinds_)
    if (event.mimeData()->hasFormat(kMimeType + kind)) return kind;
  return {};
}

void SettingsList::dragEnterEvent(QDragEnterEvent* event) { event->setAccepted(!KindOf(*event).isEmpty()); }

// The row under the pointer is the one that takes it.
void SettingsList::dragMoveEvent(QDragMoveEvent* event) {
  QTreeView::dragMoveEvent(event);  // scrolls at the edges
  const QModelIndex under = indexAt(event->position().toPoint());
  if (under.isValid()) setCurrentIndex(under.siblingAtColumn(0));
  event->setAccepted(!KindOf(*event).isEmpty());
}

void SettingsList::dropEvent(QDropEvent* event) {
  const QString kind = KindOf(*event);
  if (kind.isEmpty()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const QString key = QString::fromUtf8(event->mimeData()->data(kMimeType + kind));
  const int row = indexAt(event->position().toPoint()).row();
  stopAutoScroll();
  setState(NoState);
  // The drag ends with this call; what comes of it may show a message.
  QTimer::singleShot(0, this, [=, this] { notices::Guarded([&] { onDrop_(kind, key, row); }); });
}

QIcon IconOf(Severity severity, const QWidget& widget) {
  switch (severity) {
    case Severity::Error:
      return widget.style()->standardIcon(QStyle::SP_MessageBoxCritical, nullptr, &widget);
    case Severity::Warning:
      return widget.style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &widget);
    case Severity::Note:
      return widget.style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, &widget);
    default:
      return {};
  }
}

}  // namespace folvane::transfer
