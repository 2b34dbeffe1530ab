#include "browser/OriginalsView.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

#include <folvane/Icons.h>

#include "catalogue/OriginalRows.h"
#include "catalogue/ReadRows.h"
#include "originals/OriginalFileAction.h"
#include "records/RecordListModel.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kNameWidth = 360;

QStandardItem* NewItem(const QString& text) {
  auto* item = new QStandardItem(text);
  item->setEditable(false);
  return item;
}

QStringList FilesIn(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files << url.toLocalFile();
  }
  return files;
}

// Nothing but files is taken, and always as a copy.
void TakeFilesOf(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.setAccepted(!FilesIn(*event.mimeData()).isEmpty());
}

}  // namespace

OriginalsView::OriginalsView(QWidget* parent) : QTreeView(parent) {
  setObjectName(u"LVFile"_s);
  setAccessibleName(u"选中文件的原文"_s);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setContextMenuPolicy(Qt::CustomContextMenu);
  model_.setHorizontalHeaderLabels({u"原文名称"_s, u"类型"_s, u"大小"_s});
  setModel(&model_);
  header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header()->resizeSection(0, kNameWidth);
  setAcceptDrops(true);
  ConnectGuarded(this, &QTreeView::doubleClicked, this, [this] { open_(); });
  hint_ = new ViewHint(*this, u"FileHint"_s);
}

void OriginalsView::Clear() {
  model_.removeRows(0, model_.rowCount());
  hint_->ShowHint({});
}

QString OriginalsView::CurrentId() const { return currentIndex().siblingAtColumn(0).data(Qt::UserRole + 2).toString(); }

void OriginalsView::ShowOriginalsOf(const QString& recordKey) {
  const QString current = CurrentId();
  Clear();
  const std::vector<OriginalRow> originals = ReadRows<OriginalRow>(SharedConnection(), OriginalsStatement(recordKey));
  if (originals.empty()) hint_->ShowHint(u"此文件没有原文。"_s);
  for (const OriginalRow& original : originals) {
    QStandardItem* name = NewItem(original.originalName);
    name->setIcon(Icon(u"original"_s));
    name->setData(RowIcon::Original, Qt::UserRole + 1);
    name->setData(original.id, Qt::UserRole + 2);
    model_.appendRow({name, NewItem(original.type), NewItem(QString::number(original.size))});
    if (original.id == current) setCurrentIndex(name->index());
  }
}

void OriginalsView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTreeView::keyPressEvent(event);
    return;
  }
  RunGuarded([this] { open_(); });
}

void OriginalsView::dragEnterEvent(QDragEnterEvent* event) { TakeFilesOf(*event); }

void OriginalsView::dragMoveEvent(QDragMoveEvent* event) { TakeFilesOf(*event); }

// The program that the files come from waits until the drop is over: they are added after that.
void OriginalsView::dropEvent(QDropEvent* event) {
  const QStringList files = FilesIn(*event->mimeData());
  TakeFilesOf(*event);
  QMetaObject::invokeMethod(
      this, [this, files] { RunGuarded([&] { drop_(files); }); }, Qt::QueuedConnection);
}

}  // namespace folvane
