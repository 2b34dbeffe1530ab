#include "components/originals/FrmAddOriginals.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTimer>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/originals/FileList.h"
#include "components/originals/OfferedFiles.h"
#include "components/originals/OriginalNames.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

enum AddColumn { kNameColumn, kTypeColumn, kSizeColumn, kStepColumn };

const QString kAddHint = u"可选择文件、拖放文件到列表中，或粘贴图像和文件；按 F2 修改原文名称。"_s;

}  // namespace

FrmAddOriginals::FrmAddOriginals(QWidget* parent, RecordOriginals& originals)
    : QDialog(parent),
      queue_(originals),
      list_(new FileList(this, {u"原文名称"_s, u"类型"_s, u"大小"_s, u"状态"_s})),
      state_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
  setObjectName(u"frmAddOriginals"_s);
  setWindowTitle(u"添加原文"_s);
  setWindowIcon(Icon(u"addfile"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  list_->onFiles = [this](const QMimeData& data) { Guarded([&] { Offer(FilesIn(data, images_.path())); }); };
  list_->onMove = [](const std::vector<int>&, int) {};
  connect(&list_->Items(), &QStandardItemModel::itemChanged, this, &FrmAddOriginals::Rename);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FrmAddOriginals::Enable);
  TellState(kAddHint);
  Enable();
  KeepPlacement(*this);
  KeepWidths(*list_->header());
}

void FrmAddOriginals::LayOut() {
  NameControls();
  auto* column = new QVBoxLayout(this);
  column->addWidget(list_, 1);
  column->addWidget(state_);
  column->addWidget(progress_);
  column->addWidget(NewKeys());
  const QFontMetrics metrics(font());
  const int unit = metrics.averageCharWidth();
  resize(unit * 120, metrics.lineSpacing() * 26);
  list_->setColumnWidth(kNameColumn, unit * 46);
  list_->setColumnWidth(kTypeColumn, unit * 10);
  list_->setColumnWidth(kSizeColumn, unit * 14);
  const auto onKey = [this](const QKeySequence& keys, void (FrmAddOriginals::*handler)()) {
    connect(new QShortcut(keys, list_, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            [this, handler] {
              if (!isWorking_) Guarded([&] { (this->*handler)(); });
            });
  };
  onKey(QKeySequence::Delete, &FrmAddOriginals::Remove);
  onKey(QKeySequence::Paste, &FrmAddOriginals::Paste);
}

void FrmAddOriginals::NameControls() {
  list_->setObjectName(u"LvFiles"_s);
  list_->setAccessibleName(u"要添加的文件"_s);
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  progress_->setObjectName(u"PrgAdd"_s);
  progress_->setAccessibleName(u"添加进度"_s);
  progress_->hide();
}

QWidget* FrmAddOriginals::NewKeys() {
  auto* keys = new QWidget(this);
  auto* row = new QHBoxLayout(keys);
  row->setContentsMargins(0, 0, 0, 0);
  choose_ = NewPushButton(this, {u"CmdChoose"_s, u"open"_s, u"选择文件(&F)..."_s, u"选择要添加的文件，可以多选"_s, {}},
                          [this] { Choose(); });
  paste_ = NewPushButton(this, {u"CmdPaste"_s, u"copyall"_s, u"粘贴(&P)"_s, u"粘贴剪贴板中的图像或文件 (Ctrl+V)"_s, {}},
                         [this] { Paste(); });
  remove_ = NewPushButton(this, {u"CmdRemove"_s, u"del"_s, u"移除(&R)"_s, u"从列表中移除选中的文件 (Del)"_s, {}},
                          [this] { Remove(); });
  add_ = NewPushButton(this, {u"CmdAdd"_s, u"addfile"_s, u"开始添加(&A)"_s, u"将列表中的文件添加为原文"_s, {}},
                       [this] { Add(); });
  stop_ = NewPushButton(this, {u"CmdStop"_s, u"cancel"_s, u"停止(&S)"_s, u"停止添加"_s, {}}, [this] { reject(); });
  close_ = NewPushButton(this, {u"CmdClose"_s, u"exit"_s, u"关闭(&C)"_s, u"关闭窗口"_s, {}}, [this] { reject(); });
  for (QPushButton* key : {choose_, paste_, remove_}) row->addWidget(key);
  row->addStretch();
  for (QPushButton* key : {add_, stop_, close_}) row->addWidget(key);
  return keys;
}

void FrmAddOriginals::Offer(const std::vector<FileToAdd>& files) {
  if (isWorking_) return;
  for (const FileToAdd& file : files) queue_.Append(file);
  for (auto row = std::size_t(list_->Items().rowCount()); row < queue_.Files().size(); ++row) {
    auto* name = FixedCell(queue_.Files()[row].file.name);
    name->setEditable(true);
    name->setIcon(Icon(u"original"_s));
    name->setToolTip(queue_.Files()[row].file.path);
    list_->Items().appendRow({name, FixedCell({}), FixedCell({}), FixedCell({})});
    ShowRow(row);
  }
  TellState();
  Enable();
}

void FrmAddOriginals::ChooseAtOnce() {
  QTimer::singleShot(0, this, [this] { Guarded([this] { Choose(); }); });
}

void FrmAddOriginals::AddAtOnce() {
  QTimer::singleShot(0, this, [this] { Guarded([this] { Add(); }); });
}

void FrmAddOriginals::ShowRow(std::size_t index) {
  const QueuedFile& queued = queue_.Files()[index];
  QStandardItemModel& items = list_->Items();
  const int row = int(index);
  items.item(row, kNameColumn)->setText(queued.file.name);
  items.item(row, kNameColumn)->setEditable(queued.step != AddStep::Added);
  items.item(row, kTypeColumn)->setText(queued.file.type);
  items.item(row, kSizeColumn)->setText(SizeText(queued.size));
  items.item(row, kStepColumn)->setText(queued.StepText());
  items.item(row, kStepColumn)->setToolTip(queued.problem);
}

void FrmAddOriginals::Rename(QStandardItem* cell) {
  const auto row = std::size_t(cell->row());
  if (cell->column() != kNameColumn || cell->text() == queue_.Files()[row].file.name) return;
  queue_.Rename(row, cell->text());
  ShowRow(row);
}

void FrmAddOriginals::TellState(const QString& text) {
  if (!text.isEmpty() || queue_.Files().empty()) {
    state_->setText(text.isEmpty() ? kAddHint : text);
    return;
  }
  QString state = u"共 %1 个文件"_s.arg(queue_.Files().size());
  if (queue_.Added() > 0) state += u"，已添加 %1 个"_s.arg(queue_.Added());
  if (queue_.Failed() > 0) state += u"，失败 %1 个"_s.arg(queue_.Failed());
  state_->setText(state + u"。"_s);
}

void FrmAddOriginals::Enable() {
  const bool hasPending = queue_.Pending() > 0;
  for (QPushButton* key : {choose_, paste_}) key->setEnabled(!isWorking_);
  remove_->setEnabled(!isWorking_ && !list_->SelectedRows().empty());
  add_->setEnabled(!isWorking_ && hasPending);
  add_->setDefault(hasPending);
  choose_->setDefault(!hasPending);
  list_->setEnabled(!isWorking_);
  stop_->setVisible(isWorking_);
  close_->setVisible(!isWorking_);
  progress_->setVisible(isWorking_);
}

void FrmAddOriginals::Choose() { Offer(ChooseFiles(this)); }

void FrmAddOriginals::Paste() {
  const std::vector<FileToAdd> files = FilesInClipboard(images_.path());
  Offer(files);
  if (files.empty()) TellState(u"剪贴板中没有图像或文件。"_s);
}

void FrmAddOriginals::Remove() {
  std::vector<int> rows = list_->SelectedRows();
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    if (queue_.Files()[std::size_t(*row)].step == AddStep::Added) continue;
    queue_.Remove(std::size_t(*row));
    list_->Items().removeRow(*row);
  }
  TellState();
  Enable();
}

// The events of the window are let through while a file is copied; all that can be done then is to stop.
void FrmAddOriginals::Add() {
  if (isWorking_ || queue_.Pending() == 0) return;
  isStopped_ = false;
  {
    const QScopedValueRollback working(isWorking_, true);
    Enable();
    stop_->setFocus();
    progress_->setRange(0, int(queue_.Files().size()) * 100);
    queue_.Run([this](std::size_t index) { return ShowStep(index); });
  }
  TellState();
  Enable();
  if (queue_.Pending() == 0) return accept();
  ShowFirstProblem();
}

bool FrmAddOriginals::ShowStep(std::size_t index) {
  const QueuedFile& queued = queue_.Files()[index];
  ShowRow(index);
  if (!pulse_.IsDue()) return !isStopped_;
  progress_->setValue(int(index) * 100 + (queued.step == AddStep::Adding ? queued.percent : 100));
  TellState(u"正在添加第 %1 个文件，共 %2 个：%3"_s.arg(index + 1)
                .arg(queue_.Files().size())
                .arg(queued.file.name + queued.file.type));
  list_->scrollTo(list_->Items().index(int(index), 0));
  QCoreApplication::processEvents();
  return !isStopped_;
}

void FrmAddOriginals::ShowFirstProblem() {
  const auto& files = queue_.Files();
  const auto failed =
      std::find_if(files.begin(), files.end(), [](const QueuedFile& file) { return file.step == AddStep::Failed; });
  list_->setFocus();
  if (failed == files.end()) return;
  list_->SelectRows({int(failed - files.begin())});
  state_->setText(state_->text() + u'\n' + failed->problem);
}

void FrmAddOriginals::reject() {
  if (isWorking_) {
    isStopped_ = true;
    return;
  }
  const QString question = u"还有 %1 个文件没有添加，确定要关闭吗?"_s.arg(queue_.Pending());
  if (queue_.Pending() == 0 || Ask(question, windowTitle(), kWarningIcon)) QDialog::reject();
}

}  // namespace folvane::originals
