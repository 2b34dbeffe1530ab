#include "components/documents/FrmViewer.h"

#include <QAction>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/documents/NoticePage.h"
#include "components/documents/PageView.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kResizingMs = 60;

QLabel* NewPanel(const QString& name, QWidget* parent) {
  auto* panel = new QLabel(parent);
  panel->setObjectName(name);
  return panel;
}

}  // namespace

FrmViewer::FrmViewer(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first)
    : QDialog(parent),
      title_(title),
      documents_(documents),
      threads_(NewLoaderThreads()),
      view_(new PageView(this)),
      notice_(new NoticePage(this)),
      room_(new QStackedWidget(this)),
      pageBox_(new QSpinBox(this)),
      pageCount_(NewPanel(u"LblPageCount"_s, this)),
      pageState_(NewPanel(u"PanPage"_s, this)),
      zoomState_(NewPanel(u"PanZoom"_s, this)),
      sizeState_(NewPanel(u"PanSize"_s, this)),
      documentState_(NewPanel(u"PanDocument"_s, this)),
      resizing_(new QTimer(this)) {
  setObjectName(u"frmViewer"_s);
  setWindowIcon(Icon(u"browse"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resizing_->setSingleShot(true);
  resizing_->setInterval(kResizingMs);
  LayOut();
  ConnectView();
  KeepPlacement(*this);
  Open(first);
}

FrmViewer::~FrmViewer() {
  loader_.reset();
  WaitFor(*threads_);
}

void FrmViewer::LayOut() {
  view_->setObjectName(u"View"_s);
  view_->setAccessibleName(u"页面"_s);
  room_->addWidget(notice_);
  room_->addWidget(view_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(NewToolBar());
  column->addWidget(room_, 1);
  column->addWidget(NewStatusLine());
  const QFontMetrics metrics(font());
  resize(metrics.averageCharWidth() * 150, metrics.lineSpacing() * 55);
}

QToolBar* FrmViewer::NewToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbViewer"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  AddFileKeys(*bar);
  bar->addSeparator();
  AddPageKeys(*bar);
  bar->addSeparator();
  AddZoomKeys(*bar);
  return bar;
}

void FrmViewer::AddFileKeys(QToolBar& bar) {
  previousDocument_ = AddKey(bar, {u"CmdPreviousFile"_s, u"prefile"_s, {}, u"上一份原文"_s, Qt::ALT | Qt::Key_Left},
                             [this] { Open(document_ - 1); });
  nextDocument_ = AddKey(bar, {u"CmdNextFile"_s, u"nextfile"_s, {}, u"下一份原文"_s, Qt::ALT | Qt::Key_Right},
                         [this] { Open(document_ + 1); });
  bar.addSeparator();
  print_ = AddKey(bar, {u"CmdPrint"_s, u"print"_s, u"打印"_s, u"打印原文"_s, QKeySequence::Print}, [this] { Print(); });
  save_ = AddKey(bar, {u"CmdSave"_s, u"save"_s, u"另存"_s, u"另存副本"_s, QKeySequence::Save}, [this] { SaveCopy(); });
  open_ = AddKey(bar, {u"CmdOpen"_s, u"open"_s, u"打开"_s, u"用其他程序打开"_s, QKeySequence::Open},
                 [this] { OpenOutside(); });
}

void FrmViewer::AddPageKeys(QToolBar& bar) {
  first_ = AddKey(bar, {u"CmdFirst"_s, u"firstpage"_s, {}, u"首页"_s, Qt::CTRL | Qt::Key_Home}, [this] { GoTo(0); });
  previous_ = AddKey(bar, {u"CmdPrevious"_s, u"prepage"_s, {}, u"上一页"_s, Qt::CTRL | Qt::Key_PageUp},
                     [this] { GoTo(page_ - 1); });
  pageBox_->setObjectName(u"TxtPage"_s);
  pageBox_->setAccessibleName(u"页码"_s);
  pageBox_->setToolTip(u"输入页码，按回车键转到该页 (Ctrl+G)"_s);
  pageBox_->setButtonSymbols(QSpinBox::NoButtons);
  pageBox_->setAlignment(Qt::AlignRight);
  pageBox_->setKeyboardTracking(false);
  pageBox_->setMinimumWidth(fontMetrics().averageCharWidth() * 7);
  bar.addWidget(pageBox_);
  bar.addWidget(pageCount_);
  next_ = AddKey(bar, {u"CmdNext"_s, u"nextpage"_s, {}, u"下一页"_s, Qt::CTRL | Qt::Key_PageDown},
                 [this] { GoTo(page_ + 1); });
  last_ =
      AddKey(bar, {u"CmdLast"_s, u"lastpage"_s, {}, u"末页"_s, Qt::CTRL | Qt::Key_End}, [this] { GoTo(pages_ - 1); });
  connect(pageBox_, &QSpinBox::valueChanged, this, [this](int page) { GoTo(page - 1); });
  auto* goTo = new QAction(this);
  goTo->setShortcut(Qt::CTRL | Qt::Key_G);
  addAction(goTo);
  connect(goTo, &QAction::triggered, this, [this] {
    pageBox_->setFocus();
    pageBox_->selectAll();
  });
}

void FrmViewer::AddZoomKeys(QToolBar& bar) {
  pageKeys_ = {
      AddKey(bar, {u"CmdZoomIn"_s, u"zoomin"_s, {}, u"放大"_s, QKeySequence::ZoomIn}, [this] { ZoomTo(true); }),
      AddKey(bar, {u"CmdZoomOut"_s, u"zoomout"_s, {}, u"缩小"_s, QKeySequence::ZoomOut}, [this] { ZoomTo(false); }),
      AddKey(bar, {u"CmdTrueSize"_s, {}, u"100%"_s, u"按实际大小显示"_s, Qt::CTRL | Qt::Key_1},
             [this] {
               SetZoom({Zoom::Fit::None, 1});
             }),
      AddKey(bar, {u"CmdFitWidth"_s, u"fitwidth"_s, u"页宽"_s, u"按页宽显示"_s, Qt::CTRL | Qt::Key_2},
             [this] {
               SetZoom({Zoom::Fit::Width, 1});
             }),
      AddKey(bar, {u"CmdFitPage"_s, u"fitpage"_s, u"整页"_s, u"显示整页"_s, Qt::CTRL | Qt::Key_0},
             [this] {
               SetZoom({Zoom::Fit::Page, 1});
             }),
      AddKey(bar, {u"CmdTurnLeft"_s, u"turnleft"_s, {}, u"向左旋转"_s, Qt::CTRL | Qt::Key_L}, [this] { Turn(3); }),
      AddKey(bar, {u"CmdTurnRight"_s, u"turnright"_s, {}, u"向右旋转"_s, Qt::CTRL | Qt::Key_R}, [this] { Turn(1); })};
}

QWidget* FrmViewer::NewStatusLine() {
  auto* line = new QWidget(this);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(8, 3, 8, 3);
  row->setSpacing(24);
  row->addWidget(pageState_);
  row->addWidget(zoomState_);
  row->addWidget(sizeState_);
  row->addStretch();
  row->addWidget(documentState_);
  return line;
}

void FrmViewer::ConnectView() {
  view_->turnBy = [this](int pages) { TurnBy(pages); };
  view_->turnToEnd = [this](bool toLast) { GoTo(toLast ? pages_ - 1 : 0); };
  view_->zoom = [this](bool larger) { ZoomTo(larger); };
  view_->resized = [this] { resizing_->start(); };
  connect(resizing_, &QTimer::timeout, this, &FrmViewer::WishPages);
  notice_->retry = [this] { Open(document_); };
  notice_->open = [this] { OpenOutside(); };
  notice_->save = [this] { SaveCopy(); };
  notice_->unlock = [this](const QString& password) { loader_->GivePassword(password); };
}

}  // namespace folvane::documents
