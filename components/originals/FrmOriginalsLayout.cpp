#include <QAction>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/originals/FileList.h"
#include "components/originals/FrmOriginals.h"
#include "components/originals/OfferedFiles.h"

// How the window of a record's originals looks, and which key does what.
namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr QSize kRowIcon(56, 56);

}  // namespace

void FrmOriginals::LayOut() {
  SetUpList();
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  state_->setMargin(4);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(NewToolBar());
  column->addWidget(list_, 1);
  column->addWidget(state_);
  const QFontMetrics metrics(font());
  const int unit = metrics.averageCharWidth();
  resize(unit * 130, metrics.lineSpacing() * 36);
  list_->setColumnWidth(0, unit * 90);
  list_->setColumnWidth(1, unit * 14);
  KeepPlacement(*this);
  KeepWidths(*list_->header());
}

void FrmOriginals::SetUpList() {
  list_->setObjectName(u"LvOriginals"_s);
  list_->setAccessibleName(u"此记录的原文"_s);
  list_->setIconSize(kRowIcon);
  list_->setDragEnabled(true);
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  // The program that files are dragged from waits for the drop to end, so the window comes after it.
  list_->onFiles = [this](const QMimeData& data) {
    Guarded([&] {
      QTimer::singleShot(0, this, [this, files = FilesIn(data, images_.path())] { Do([&] { Offer(files); }); });
    });
  };
  list_->onMove = [this](const std::vector<int>& rows, int before) { Do([&] { MoveRows(rows, before); }); };
  connect(list_, &QTreeView::activated, this, [this] { Do([this] { View(); }); });
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FrmOriginals::Enable);
  connect(&list_->Items(), &QStandardItemModel::itemChanged, this,
          [this](const QStandardItem* cell) { NoteName(*cell); });
}

QToolBar* FrmOriginals::NewToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbOriginals"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  NewKey(*bar, {u"CmdAdd"_s, u"addfile"_s, u"添加"_s, u"添加文件、图像作为原文"_s, QKeySequence::New},
         &FrmOriginals::Add);
  NewKey(*bar, {u"CmdScan"_s, u"scan"_s, u"扫描"_s, u"扫描文件作为原文"_s, {}}, &FrmOriginals::Scan);
  NewKey(*bar, {u"CmdPaste"_s, u"copyall"_s, u"粘贴"_s, u"添加剪贴板中的图像或文件"_s, QKeySequence::Paste},
         &FrmOriginals::Paste);
  bar->addSeparator();
  view_ = NewKey(*bar, {u"CmdView"_s, u"lookfiles"_s, u"浏览"_s, u"浏览选中的原文"_s, {}}, &FrmOriginals::View);
  export_ = NewKey(*bar, {u"CmdExport"_s, u"save"_s, u"导出"_s, u"将选中的原文另存为文件"_s, QKeySequence::Save},
                   &FrmOriginals::Export);
  rename_ = NewKey(*bar, {u"CmdRename"_s, u"mod"_s, u"改名"_s, u"修改原文名称"_s, Qt::Key_F2}, &FrmOriginals::EditName);
  delete_ = NewKey(*bar, {u"CmdDelete"_s, u"delfile"_s, u"删除"_s, u"删除选中的原文"_s, QKeySequence::Delete},
                   &FrmOriginals::Delete);
  bar->addSeparator();
  up_ =
      NewKey(*bar, {u"CmdUp"_s, u"moveup"_s, {}, u"上移"_s, QKeySequence(Qt::ALT | Qt::Key_Up)}, &FrmOriginals::MoveUp);
  down_ = NewKey(*bar, {u"CmdDown"_s, u"movedown"_s, {}, u"下移"_s, QKeySequence(Qt::ALT | Qt::Key_Down)},
                 &FrmOriginals::MoveDown);
  bar->addSeparator();
  NewKey(*bar, {u"CmdRefresh"_s, u"refresh"_s, {}, u"刷新"_s, QKeySequence::Refresh}, &FrmOriginals::Refresh);
  NewKey(*bar, {u"CmdCheck"_s, u"search"_s, u"检查原文"_s, u"检查所有原文记录与存放的文件是否一致"_s, {}},
         &FrmOriginals::Check);
  return bar;
}

QAction* FrmOriginals::NewKey(QToolBar& bar, const ToolKey& key, Handler handler) {
  QAction* action = AddKey(bar, key, [this, handler] { Do([&] { (this->*handler)(); }); });
  list_->addAction(action);
  return action;
}

}  // namespace folvane::originals
