#include "components/originals/FrmCheckOriginals.h"

#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QTimer>
#include <QTreeView>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/originals/FileList.h"

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

}  // namespace

FrmCheckOriginals::FrmCheckOriginals(QWidget* parent, RecordOriginals& originals)
    : QDialog(parent),
      originals_(originals),
      items_(new QStandardItemModel(0, 5, this)),
      list_(new QTreeView(this)),
      state_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
  setObjectName(u"frmCheckOriginals"_s);
  setWindowTitle(u"检查原文"_s);
  setWindowIcon(Icon(u"search"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  Enable();
  KeepPlacement(*this);
  KeepWidths(*list_->header());
  QTimer::singleShot(0, this, [this] { Guarded([this] { Run(); }); });
}

void FrmCheckOriginals::LayOut() {
  NameControls();
  auto* column = new QVBoxLayout(this);
  column->addWidget(list_, 1);
  column->addWidget(state_);
  column->addWidget(progress_);
  column->addWidget(NewKeys());
  const QFontMetrics metrics(font());
  const int unit = metrics.averageCharWidth();
  resize(unit * 140, metrics.lineSpacing() * 30);
  int width = 0;
  for (const int units : {18, 44, 30, 14}) list_->setColumnWidth(width++, unit * units);
}

void FrmCheckOriginals::NameControls() {
  items_->setHorizontalHeaderLabels({u"问题"_s, u"存放位置"_s, u"原文名称"_s, u"大小"_s, u"所属记录"_s});
  list_->setObjectName(u"LvFindings"_s);
  list_->setAccessibleName(u"发现的问题"_s);
  list_->setModel(items_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setAlternatingRowColors(true);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  progress_->setObjectName(u"PrgCheck"_s);
  progress_->setAccessibleName(u"检查进度"_s);
}

QWidget* FrmCheckOriginals::NewKeys() {
  auto* keys = new QWidget(this);
  auto* row = new QHBoxLayout(keys);
  row->setContentsMargins(0, 0, 0, 0);
  run_ = NewPushButton(this, {u"CmdRun"_s, u"refresh"_s, u"重新检查(&R)"_s, u"再检查一次"_s, {}}, [this] { Run(); });
  copy_ = NewPushButton(this, {u"CmdCopy"_s, u"copyall"_s, u"复制(&P)"_s, u"将检查结果复制到剪贴板"_s, {}},
                        [this] { Copy(); });
  save_ = NewPushButton(this, {u"CmdSave"_s, u"save"_s, u"保存(&V)..."_s, u"将检查结果保存为文本文件"_s, {}},
                        [this] { Save(); });
  stop_ = NewPushButton(this, {u"CmdStop"_s, u"cancel"_s, u"停止(&S)"_s, u"停止检查"_s, {}}, [this] { reject(); });
  close_ = NewPushButton(this, {u"CmdClose"_s, u"exit"_s, u"关闭(&C)"_s, u"关闭窗口"_s, {}}, [this] { reject(); });
  for (QPushButton* key : {run_, copy_, save_}) row->addWidget(key);
  row->addStretch();
  for (QPushButton* key : {stop_, close_}) row->addWidget(key);
  return keys;
}

void FrmCheckOriginals::Run() {
  findings_.reset();
  isStopped_ = false;
  items_->removeRows(0, items_->rowCount());
  state_->setText(u"检查没有完成。"_s);
  const auto whenDone = qScopeGuard([this] { Enable(); });
  const QScopedValueRollback working(isWorking_, true);
  Enable();
  stop_->setFocus();
  findings_ =
      CheckStore(originals_.Database(), originals_.Store(),
                 [this](const QString& step, qint64 done, qint64 total) { return ShowProgress(step, done, total); });
  state_->setText(findings_ ? findings_->Summary() : u"检查已停止。"_s);
  if (findings_) ShowFindings();
}

bool FrmCheckOriginals::ShowProgress(const QString& step, qint64 done, qint64 total) {
  if (!pulse_.IsDue()) return !isStopped_;
  state_->setText(total < 0 ? u"%1：%2"_s.arg(step).arg(done) : u"%1：%2 / %3"_s.arg(step).arg(done).arg(total));
  progress_->setRange(0, total < 0 ? 0 : int(total));
  progress_->setValue(total < 0 ? 0 : int(done));
  QCoreApplication::processEvents();
  return !isStopped_;
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
  run_->setEnabled(!isWorking_);
  for (QPushButton* key : {copy_, save_}) key->setEnabled(!isWorking_ && findings_);
  stop_->setVisible(isWorking_);
  close_->setVisible(!isWorking_);
  progress_->setVisible(isWorking_);
  if (!isWorking_) close_->setFocus();
}

void FrmCheckOriginals::Copy() { QGuiApplication::clipboard()->setText(findings_->Text()); }

void FrmCheckOriginals::Save() {
  const QString proposal = u"原文检查结果%1.txt"_s.arg(Services().now().toString(u"yyyyMMdd"_s));
  const QString path = AskForPath(u"保存检查结果"_s, QDir::home().filePath(proposal), u"文本文件|*.txt"_s);
  if (path.isEmpty()) return;
  QSaveFile file(path);
  const QByteArray bytes = "\xEF\xBB\xBF" + findings_->Text().toUtf8();
  if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
    throw DataError(DataErrorKind::File,
                    u"文件 %1 无法写入：%2"_s.arg(QDir::toNativeSeparators(path), file.errorString()));
  state_->setText(u"%1\n已保存为 %2。"_s.arg(findings_->Summary(), QDir::toNativeSeparators(path)));
}

void FrmCheckOriginals::reject() {
  if (!isWorking_) return QDialog::reject();
  isStopped_ = true;
}

}  // namespace folvane::originals
