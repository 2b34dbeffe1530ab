#include "components/originals/FrmAddOriginals.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/PlainTip.h"
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
    : WorkDialog(parent, {u"frmAddOriginals"_s, u"添加原文"_s, u"addfile"_s, u"添加"_s, u"PrgAdd"_s}),
      queue_(originals),
      list_(new FileList(this, {u"原文名称"_s, u"类型"_s, u"大小"_s, u"状态"_s})) {
  list_->setObjectName(u"LvFiles"_s);
  list_->setAccessibleName(u"要添加的文件"_s);
  list_->onFiles = [this](const QMimeData& data) { Guarded([&] { Offer(FilesIn(data, images_.path())); }); };
  list_->onMove = [](const std::vector<int>&, int) {};
  MakeKeys();
  connect(&list_->Items(), &QStandardItemModel::itemChanged, this, &FrmAddOriginals::Rename);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FrmAddOriginals::Enable);
  TellState(kAddHint);
  LayOut(*list_, {120, 26}, {46, 10, 14}, {choose_, paste_, remove_}, {add_});
}

void FrmAddOriginals::MakeKeys() {
  choose_ = NewPushButton(this, {u"CmdChoose"_s, u"open"_s, u"选择文件(&F)..."_s, u"选择要添加的文件，可以多选"_s, {}},
                          [this] { Choose(); });
  paste_ = NewPushButton(this, {u"CmdPaste"_s, u"copyall"_s, u"粘贴(&P)"_s, u"粘贴剪贴板中的图像或文件 (Ctrl+V)"_s, {}},
                         [this] { Paste(); });
  remove_ = NewPushButton(this, {u"CmdRemove"_s, u"del"_s, u"移除(&R)"_s, u"从列表中移除选中的文件 (Del)"_s, {}},
                          [this] { Remove(); });
  add_ = NewPushButton(this, {u"CmdAdd"_s, u"addfile"_s, u"开始添加(&A)"_s, u"将列表中的文件添加为原文"_s, {}},
                       [this] { Add(); });
  const auto onKey = [this](const QKeySequence& keys, void (FrmAddOriginals::*handler)()) {
    connect(new QShortcut(keys, list_, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            [this, handler] {
              if (!IsWorking()) Guarded([&] { (this->*handler)(); });
            });
  };
  onKey(QKeySequence::Delete, &FrmAddOriginals::Remove);
  onKey(QKeySequence::Paste, &FrmAddOriginals::Paste);
}

void FrmAddOriginals::Offer(const std::vector<FileToAdd>& files) {
  if (IsWorking()) return;
  for (const FileToAdd& file : files) queue_.Append(file);
  for (auto row = std::size_t(list_->Items().rowCount()); row < queue_.Files().size(); ++row) {
    auto* name = FixedCell(queue_.Files()[row].file.name);
    name->setEditable(true);
    name->setIcon(Icon(u"original"_s));
    name->setToolTip(components::PlainTip(queue_.Files()[row].file.path));
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
  items.item(row, kStepColumn)->setToolTip(components::PlainTip(queued.problem));
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
  WorkDialog::Enable();
  const bool hasPending = queue_.Pending() > 0;
  for (QPushButton* key : {choose_, paste_}) key->setEnabled(!IsWorking());
  remove_->setEnabled(!IsWorking() && !list_->SelectedRows().empty());
  add_->setEnabled(!IsWorking() && hasPending);
  add_->setDefault(hasPending);
  choose_->setDefault(!hasPending);
  list_->setEnabled(!IsWorking());
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

void FrmAddOriginals::Add() {
  if (IsWorking() || queue_.Pending() == 0) return;
  progress_->setRange(0, int(queue_.Files().size()) * 100);
  RunWork([this] { queue_.Run([this](std::size_t index) { return ShowStep(index); }); });
  TellState();
  if (queue_.Pending() == 0) return accept();
  ShowFirstProblem();
}

bool FrmAddOriginals::ShowStep(std::size_t index) {
  const QueuedFile& queued = queue_.Files()[index];
  ShowRow(index);
  if (!IsDue()) return GoesOn();
  progress_->setValue(int(index) * 100 + (queued.step == AddStep::Adding ? queued.percent : 100));
  TellState(u"正在添加第 %1 个文件，共 %2 个：%3"_s.arg(index + 1)
                .arg(queue_.Files().size())
                .arg(queued.file.name + queued.file.type));
  list_->scrollTo(list_->Items().index(int(index), 0));
  return LetThrough();
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
  const QString question = u"还有 %1 个文件没有添加，确定要关闭吗?"_s.arg(queue_.Pending());
  if (IsWorking() || queue_.Pending() == 0 || Ask(question, windowTitle(), kWarningIcon)) WorkDialog::reject();
}

}  // namespace folvane::originals
