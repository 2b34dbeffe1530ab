#include "components/originals/FrmCheckOriginals.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardItemModel>
#include <QTimer>
#include <QTreeView>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/ToolKeys.h"
#include "components/common/WholeFile.h"
#include "components/originals/FileList.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

}  // namespace

FrmCheckOriginals::FrmCheckOriginals(QWidget* parent, RecordOriginals& originals)
    : WorkDialog(parent, {u"frmCheckOriginals"_s, u"检查原文"_s, u"search"_s, u"检查"_s, u"PrgCheck"_s}),
      originals_(originals),
      items_(new QStandardItemModel(0, 5, this)),
      list_(new QTreeView(this)) {
  MakeList();
  MakeKeys();
  LayOut(*list_, {140, 30}, {18, 44, 30, 14}, {run_, copy_, save_});
  QTimer::singleShot(0, this, [this] { Guarded([this] { Run(); }); });
}

void FrmCheckOriginals::MakeList() {
  items_->setHorizontalHeaderLabels({u"问题"_s, u"存放位置"_s, u"原文名称"_s, u"大小"_s, u"所属记录"_s});
  list_->setObjectName(u"LvFindings"_s);
  list_->setAccessibleName(u"发现的问题"_s);
  list_->setModel(items_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setAlternatingRowColors(true);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void FrmCheckOriginals::MakeKeys() {
  run_ = NewPushButton(this, {u"CmdRun"_s, u"refresh"_s, u"重新检查(&R)"_s, u"再检查一次"_s, {}}, [this] { Run(); });
  copy_ = NewPushButton(this, {u"CmdCopy"_s, u"copyall"_s, u"复制(&P)"_s, u"将检查结果复制到剪贴板"_s, {}},
                        [this] { Copy(); });
  save_ = NewPushButton(this, {u"CmdSave"_s, u"save"_s, u"保存(&V)..."_s, u"将检查结果保存为文本文件"_s, {}},
                        [this] { Save(); });
}

void FrmCheckOriginals::Run() {
  findings_.reset();
  items_->removeRows(0, items_->rowCount());
  state_->setText(u"检查没有完成。"_s);
  RunWork([this] {
    findings_ =
        CheckStore(originals_.Database(), originals_.Store(),
                   [this](const QString& step, qint64 done, qint64 total) { return ShowProgress(step, done, total); });
    state_->setText(findings_ ? findings_->Summary() : u"检查已停止。"_s);
    if (findings_) ShowFindings();
  });
}

bool FrmCheckOriginals::ShowProgress(const QString& step, qint64 done, qint64 total) {
  if (!IsDue()) return GoesOn();
  state_->setText(total < 0 ? u"%1：%2"_s.arg(step).arg(done) : u"%1：%2 / %3"_s.arg(step).arg(done).arg(total));
  progress_->setRange(0, total < 0 ? 0 : int(total));
  progress_->setValue(total < 0 ? 0 : int(done));
  return LetThrough();
}

void FrmCheckOriginals::ShowFindings() {
  const auto show = [this](const QStringList& line) {
    QList<QStandardItem*> cells;
    for (const QString& text : line) cells << FixedCell(text);
    items_->appendRow(cells);
  };
  for (const MissingFile& file : findings_->missingFiles) show(LineOf(file));
  for (const StoredFile& file : findings_->unknownFiles) show(LineOf(file));
}

void FrmCheckOriginals::Enable() {
  WorkDialog::Enable();
  run_->setEnabled(!IsWorking());
  for (QPushButton* key : {copy_, save_}) key->setEnabled(!IsWorking() && findings_);
  if (!IsWorking()) close_->setFocus();
}

void FrmCheckOriginals::Copy() { QGuiApplication::clipboard()->setText(findings_->Text()); }

void FrmCheckOriginals::Save() {
  const QString proposal = u"原文检查结果%1.txt"_s.arg(Services().now().toString(u"yyyyMMdd"_s));
  const QString path = AskForPath(u"保存检查结果"_s, QDir::home().filePath(proposal), u"文本文件|*.txt"_s);
  if (path.isEmpty()) return;
  QSaveFile file(path);
  const QByteArray bytes = "\xEF\xBB\xBF" + findings_->Text().toUtf8();
  if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !components::CommitWhole(file))
    throw DataError(DataErrorKind::File,
                    u"文件 %1 无法写入：%2"_s.arg(QDir::toNativeSeparators(path), file.errorString()));
  state_->setText(u"%1\n已保存为 %2。"_s.arg(findings_->Summary(), QDir::toNativeSeparators(path)));
}

}  // namespace folvane::originals
