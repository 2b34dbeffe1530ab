#include "components/scanning/FrmScan.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/scanning/PageList.h"
#include "components/scanning/PagePreview.h"
#include "components/scanning/ScanMemory.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

template <typename Control>
Control* New(const QString& name, const QString& caption, QWidget* parent) {
  auto* control = new Control(parent);
  control->setObjectName(name);
  control->setAccessibleName(caption);
  return control;
}

QPushButton* NewPushKey(const QString& name, const QString& icon, const QString& caption, QWidget* parent) {
  auto* key = new QPushButton(Icon(icon), caption, parent);
  key->setObjectName(name);
  key->setAutoDefault(false);
  return key;
}

void AddPapers(QComboBox& box) {
  box.addItem(u"整个幅面"_s, QSizeF());
  box.addItem(u"A3"_s, QSizeF(297, 420));
  box.addItem(u"A4"_s, QSizeF(210, 297));
  box.addItem(u"A5"_s, QSizeF(148, 210));
  box.addItem(u"B5"_s, QSizeF(182, 257));
  box.addItem(u"16 开"_s, QSizeF(184, 260));
  box.setCurrentIndex(qMax(0, box.findText(Remembered(u"Paper"_s))));
}

void AddKinds(QComboBox& box) {
  box.addItem(u"一个 PDF 文件"_s, int(KeepAs::Pdf));
  box.addItem(u"每页一个 JPEG 图像"_s, int(KeepAs::Jpeg));
  box.addItem(u"每页一个 PNG 图像"_s, int(KeepAs::Png));
  box.setCurrentIndex(qMax(0, box.findText(Remembered(u"KeepAs"_s))));
}

}  // namespace

FrmScan::FrmScan(QWidget* parent, const QString& directory)
    : QDialog(parent),
      directory_(directory),
      device_(New<QComboBox>(u"CboDevice"_s, u"扫描仪"_s, this)),
      source_(New<QComboBox>(u"CboSource"_s, u"来源"_s, this)),
      mode_(New<QComboBox>(u"CboMode"_s, u"颜色"_s, this)),
      resolution_(New<QComboBox>(u"CboResolution"_s, u"分辨率"_s, this)),
      paper_(New<QComboBox>(u"CboPaper"_s, u"纸张"_s, this)),
      keepAs_(New<QComboBox>(u"CboKeepAs"_s, u"保存为"_s, this)),
      refresh_(New<QToolButton>(u"CmdRefresh"_s, u"重新查找扫描仪"_s, this)),
      scan_(NewPushKey(u"CmdScan"_s, u"scan"_s, u"扫描一页(&S)"_s, this)),
      scanAll_(NewPushKey(u"CmdScanAll"_s, u"collect"_s, u"扫描全部(&F)"_s, this)),
      stop_(NewPushKey(u"CmdStop"_s, u"cancel"_s, u"停止(&T)"_s, this)),
      ok_(NewPushKey(u"CmdOK"_s, u"save"_s, u"保存(&O)"_s, this)),
      cancel_(NewPushKey(u"CmdCancel"_s, u"exit"_s, u"取消(&C)"_s, this)),
      progress_(New<QProgressBar>(u"Progress"_s, u"扫描进度"_s, this)),
      state_(New<QLabel>(u"LblState"_s, {}, this)),
      pages_(new PageList(this)),
      preview_(New<PagePreview>(u"Preview"_s, u"当前页"_s, this)),
      name_(New<QLineEdit>(u"TxtName"_s, u"名称"_s, this)),
      thread_(pagesFolder_.path(),
              {.listed = [this](const QList<ScannerInfo>& scanners) { TakeDevices(scanners); },
               .opened = [this](const ScannerChoices& choices) { TakeChoices(choices); },
               .progress = [this](int percent) { TellProgress(percent); },
               .page = [this](const ScannedPage& page, const QImage& preview) { TakePage(page, preview); },
               .finished = [this](const QString& why) { TakeEnd(why); }}) {
  setObjectName(u"frmScan"_s);
  setWindowTitle(u"扫描原文"_s);
  setWindowIcon(Icon(u"scan"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  Connect();
  KeepPlacement(*this);
  ListDevices();
}

void FrmScan::LayOut() {
  pages_->setObjectName(u"LVPages"_s);
  pages_->setAccessibleName(u"扫描的页面"_s);
  state_->setWordWrap(true);
  auto* left = new QVBoxLayout;
  left->addLayout(NewSettings());
  left->addLayout(NewScanKeys());
  left->addWidget(progress_);
  left->addWidget(state_);
  left->addStretch();

  auto* splitter = new QSplitter(this);
  splitter->addWidget(pages_);
  splitter->addWidget(preview_);
  splitter->setSizes({320, 400});
  splitter->setChildrenCollapsible(false);
  auto* right = new QVBoxLayout;
  right->setSpacing(2);
  right->addWidget(NewPageBar());
  right->addWidget(splitter, 1);

  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  columns->addLayout(left, 0);
  columns->addLayout(right, 1);
  auto* line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  auto* all = new QVBoxLayout(this);
  all->addLayout(columns, 1);
  all->addWidget(line);
  all->addLayout(NewKeepRow());
  const QFontMetrics metrics(font());
  resize(metrics.averageCharWidth() * 160, metrics.lineSpacing() * 42);
}

QLayout* FrmScan::NewSettings() {
  refresh_->setIcon(Icon(u"refresh"_s));
  refresh_->setToolTip(u"重新查找扫描仪 (F5)"_s);
  refresh_->setShortcut(Qt::Key_F5);
  AddPapers(*paper_);
  for (QComboBox* box : {device_, source_, mode_, resolution_, paper_}) {
    box->setMinimumContentsLength(18);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  }
  auto* deviceRow = new QHBoxLayout;
  deviceRow->addWidget(device_, 1);
  deviceRow->addWidget(refresh_);
  auto* form = new QFormLayout;
  form->addRow(u"扫描仪(&D)："_s, deviceRow);
  form->addRow(u"来源(&E)："_s, source_);
  form->addRow(u"颜色(&M)："_s, mode_);
  form->addRow(u"分辨率(&R)："_s, resolution_);
  form->addRow(u"纸张(&P)："_s, paper_);
  qobject_cast<QLabel*>(form->labelForField(deviceRow))->setBuddy(device_);
  return form;
}

QLayout* FrmScan::NewScanKeys() {
  scan_->setToolTip(u"扫描一页 (Ctrl+Enter)"_s);
  scanAll_->setToolTip(u"扫描进纸器中的全部纸张"_s);
  stop_->setToolTip(u"停止扫描，已扫描的页面保留"_s);
  progress_->setTextVisible(true);
  progress_->hide();
  auto* keys = new QHBoxLayout;
  keys->setContentsMargins(0, 8, 0, 0);
  for (QPushButton* key : {scan_, scanAll_, stop_}) keys->addWidget(key);
  return keys;
}

QToolBar* FrmScan::NewPageBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbPages"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  pageKeys_ = {AddKey(*bar, {u"CmdTurnLeft"_s, u"turnleft"_s, u"左转"_s, u"将所选页面向左转"_s, Qt::CTRL | Qt::Key_L},
                      [this] { pages_->TurnSelected(3); }),
               AddKey(*bar, {u"CmdTurnRight"_s, u"turnright"_s, u"右转"_s, u"将所选页面向右转"_s, Qt::CTRL | Qt::Key_R},
                      [this] { pages_->TurnSelected(1); }),
               AddKey(*bar, {u"CmdMoveUp"_s, u"moveup"_s, u"前移"_s, u"将当前页前移"_s, Qt::ALT | Qt::Key_Left},
                      [this] { pages_->MoveCurrent(-1); }),
               AddKey(*bar, {u"CmdMoveDown"_s, u"movedown"_s, u"后移"_s, u"将当前页后移"_s, Qt::ALT | Qt::Key_Right},
                      [this] { pages_->MoveCurrent(1); }),
               AddKey(*bar, {u"CmdDrop"_s, u"del"_s, u"去掉"_s, u"去掉所选页面"_s, Qt::Key_Delete},
                      [this] { pages_->DropSelected(); })};
  // In the name the key deletes letters.
  pageKeys_.last()->setShortcutContext(Qt::WidgetShortcut);
  pages_->addAction(pageKeys_.last());
  return bar;
}

QLayout* FrmScan::NewKeepRow() {
  AddKinds(*keepAs_);
  name_->setText(u"扫描件 "_s + Services().now().toString(u"yyyy-MM-dd HHmm"_s));
  name_->setMaxLength(100);
  auto* nameLabel = new QLabel(u"名称(&N)："_s, this);
  nameLabel->setBuddy(name_);
  auto* kindLabel = new QLabel(u"保存为(&K)："_s, this);
  kindLabel->setBuddy(keepAs_);
  auto* row = new QHBoxLayout;
  row->addWidget(nameLabel);
  row->addWidget(name_, 1);
  row->addWidget(kindLabel);
  row->addWidget(keepAs_);
  row->addSpacing(24);
  row->addWidget(ok_);
  row->addWidget(cancel_);
  return row;
}

}  // namespace folvane::scanning
