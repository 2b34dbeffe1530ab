#include "components/originals/FrmOriginals.h"

#include <QAction>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>
#include <utility>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/PlainTip.h"
#include "components/originals/Commands.h"
#include "components/originals/ExportOriginals.h"
#include "components/originals/FileList.h"
#include "components/originals/OfferedFiles.h"
#include "components/originals/OriginalNames.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr QSize kThumbnailSize(56, 56);

// In a square of its own, so that the names of all rows begin at one place.
QIcon Framed(const QImage& thumbnail) {
  QImage square(kThumbnailSize * thumbnail.devicePixelRatio(), QImage::Format_ARGB32_Premultiplied);
  square.setDevicePixelRatio(thumbnail.devicePixelRatio());
  square.fill(Qt::transparent);
  const QSize size = thumbnail.size() / thumbnail.devicePixelRatio();
  QPainter painter(&square);
  painter.drawImage(QPoint((kThumbnailSize.width() - size.width()) / 2, (kThumbnailSize.height() - size.height()) / 2),
                    thumbnail);
  painter.end();
  return QPixmap::fromImage(square);
}

}  // namespace

FrmOriginals::FrmOriginals(QWidget* parent, RecordOriginals& originals)
    : QDialog(parent),
      originals_(originals),
      thumbnails_(originals, kThumbnailSize,
                  [this](const QString& id, const QImage& thumbnail) { ShowThumbnail(id, Framed(thumbnail)); }),
      list_(new FileList(this, {u"原文名称"_s, u"类型"_s, u"大小"_s})),
      state_(new QLabel(this)) {
  setObjectName(u"frmOriginals"_s);
  setWindowTitle(u"原文管理"_s);
  setWindowIcon(Icon(u"original"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  thumbnails_.onUnreachable = [this](const QString& problem) { state_->setText(problem); };
  LayOut();
  Load();
}

void FrmOriginals::Do(const std::function<void()>& work) {
  if (isBusy_) return;
  const QScopedValueRollback busy(isBusy_, true);
  const ThumbnailReader::Pause pause(thumbnails_);
  Guarded([&] {
    list_->EndEditing();
    if (StoreNames()) work();
  });
}

// Not stored within the signal: the rows are read anew, the cell among them.
void FrmOriginals::NoteName(const QStandardItem& cell) {
  const QString id = cell.data(Qt::UserRole).toString();
  const auto isSame = [&](const Original& shown) { return shown.id == id && shown.name == cell.text(); };
  if (cell.column() != 0 || std::any_of(shown_.begin(), shown_.end(), isSame)) return;
  names_.insert(id, cell.text());
  QTimer::singleShot(0, this, [this] {
    if (!names_.isEmpty()) Do([] {});
  });
}

bool FrmOriginals::StoreNames() {
  const auto idsShown = [this] {
    QStringList ids;
    for (const Original& original : shown_) ids << original.id;
    return ids;
  };
  const QStringList before = idsShown();
  const QHash<QString, QString> names = std::exchange(names_, {});
  for (auto name = names.begin(); name != names.end(); ++name) Rename(name.key(), name.value());
  return idsShown() == before;
}

void FrmOriginals::Load(const QStringList& selected) {
  shown_ = originals_.Read();
  const QHash<QString, QIcon> thumbnails = Thumbnails();
  list_->Items().removeRows(0, list_->Items().rowCount());
  std::vector<Original> without;
  std::vector<int> rows;
  for (const Original& original : shown_) {
    if (selected.contains(original.id)) rows.push_back(list_->Items().rowCount());
    ShowRow(original);
    if (!thumbnails.contains(original.id)) without.push_back(original);
  }
  for (auto known = thumbnails.begin(); known != thumbnails.end(); ++known) ShowThumbnail(known.key(), known.value());
  list_->SelectRows(rows);
  TellCount();
  Enable();
  thumbnails_.Start(without);
}

void FrmOriginals::ShowRow(const Original& original) {
  QStandardItem* name = FixedCell(original.name);
  name->setEditable(true);
  name->setIcon(Framed(Icon(u"original"_s).pixmap(kThumbnailSize / 2).toImage()));
  name->setData(original.id, Qt::UserRole);
  name->setToolTip(components::PlainTip(original.name));
  QStandardItem* size = FixedCell(SizeText(original.size));
  size->setToolTip(u"%1 字节"_s.arg(original.size));
  list_->Items().appendRow({name, FixedCell(original.type), size});
}

QHash<QString, QIcon> FrmOriginals::Thumbnails() const {
  QHash<QString, QIcon> thumbnails;
  for (int row = 0; row < list_->Items().rowCount(); ++row) {
    const QStandardItem& cell = *list_->Items().item(row);
    if (cell.data(Qt::UserRole + 1).toBool()) thumbnails.insert(cell.data(Qt::UserRole).toString(), cell.icon());
  }
  return thumbnails;
}

void FrmOriginals::ShowThumbnail(const QString& id, const QIcon& thumbnail) {
  for (int row = 0; row < list_->Items().rowCount(); ++row) {
    QStandardItem& cell = *list_->Items().item(row);
    if (cell.data(Qt::UserRole).toString() != id) continue;
    cell.setIcon(thumbnail);
    cell.setData(true, Qt::UserRole + 1);
  }
}

void FrmOriginals::TellCount() {
  qint64 bytes = 0;
  for (const Original& original : shown_) bytes += original.size;
  state_->setText(shown_.empty() ? u"此记录没有原文，可以添加、扫描，或将文件拖放到列表中。"_s
                                 : u"共 %1 个原文，%2。"_s.arg(shown_.size()).arg(SizeText(bytes)));
}

void FrmOriginals::Enable() {
  const std::vector<int> rows = list_->SelectedRows();
  for (QAction* onSome : {export_, delete_}) onSome->setEnabled(!rows.empty());
  for (QAction* onOne : {view_, rename_}) onOne->setEnabled(rows.size() == 1);
  up_->setEnabled(!rows.empty() && rows.front() > 0);
  down_->setEnabled(!rows.empty() && rows.back() < int(shown_.size()) - 1);
}

std::vector<Original> FrmOriginals::Selected() const {
  std::vector<Original> selected;
  for (const int row : list_->SelectedRows()) selected.push_back(shown_[std::size_t(row)]);
  return selected;
}

QStringList FrmOriginals::SelectedIds() const {
  QStringList ids;
  for (const Original& original : Selected()) ids << original.id;
  return ids;
}

void FrmOriginals::Add() { Offer({}); }

void FrmOriginals::Paste() {
  const std::vector<FileToAdd> files = FilesInClipboard(images_.path());
  if (files.empty()) return state_->setText(u"剪贴板中没有图像或文件。"_s);
  Offer(files);
}

void FrmOriginals::Offer(const std::vector<FileToAdd>& files) {
  const int added = AddOriginals(this, originals_, files);
  Load(SelectedIds());
  if (added > 0) state_->setText(u"已添加 %1 个原文。"_s.arg(added));
}

void FrmOriginals::Scan() {
  const int added = ScanOriginals(this, originals_);
  Load(SelectedIds());
  if (added > 0) state_->setText(u"已添加 %1 个原文。"_s.arg(added));
}

void FrmOriginals::View() {
  const QStringList ids = SelectedIds();
  if (ids.size() == 1) ViewOriginals(this, originals_, ids.front());
}

void FrmOriginals::Export() {
  const std::vector<Original> selected = Selected();
  const int copied = ExportOriginals(this, originals_, selected);
  if (copied > 0) state_->setText(u"已导出 %1 个原文。"_s.arg(copied));
}

void FrmOriginals::EditName() { list_->edit(list_->Items().index(list_->SelectedRows().front(), 0)); }

void FrmOriginals::Rename(const QString& id, const QString& name) {
  const auto original =
      std::find_if(shown_.begin(), shown_.end(), [&](const Original& shown) { return shown.id == id; });
  if (original == shown_.end() || original->name == name) return;
  const auto asItIs = qScopeGuard([this] { Guarded([this] { Load(SelectedIds()); }); });
  if (name.trimmed().isEmpty()) return Tell(u"原文名称不能为空。"_s, kInformationIcon);
  originals_.Rename(*original, name);
}

// One by one: what goes wrong with one leaves the others as they are.
void FrmOriginals::Delete() {
  const std::vector<Original> going = Selected();
  const QString question =
      going.size() == 1 ? u"确定要删除当前原文吗?"_s : u"确定要删除选中的 %1 个原文吗?"_s.arg(going.size());
  if (!Ask(question, windowTitle(), kInformationIcon)) return;
  const auto asItIs = qScopeGuard([this] { Guarded([this] { Load(); }); });
  QStringList left;
  for (const Original& original : going)
    if (originals_.Delete(original)) left << original.name;
  if (!left.isEmpty()) Tell(u"原文已删除，但下列原文的文件留在存放位置未能删除：\n"_s + left.join(u'\n'), kWarningIcon);
}

void FrmOriginals::MoveUp() {
  const std::vector<int> rows = list_->SelectedRows();
  MoveRows(rows, rows.front() - 1);
}

void FrmOriginals::MoveDown() {
  const std::vector<int> rows = list_->SelectedRows();
  MoveRows(rows, rows.back() + 2);
}

void FrmOriginals::MoveRows(const std::vector<int>& rows, int before) {
  const QStringList ids = SelectedIds();
  const auto asItIs = qScopeGuard([&] { Guarded([&] { Load(ids); }); });
  originals_.Reorder(Moved(shown_, rows, before));
}

void FrmOriginals::Check() { CheckOriginals(this, originals_); }

void FrmOriginals::Refresh() { Load(SelectedIds()); }

void FrmOriginals::reject() {
  Do([this] { QDialog::reject(); });
}

}  // namespace folvane::originals
