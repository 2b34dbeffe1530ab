#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "base/IgnoreErrors.h"
#include "flows/FlowCommands.h"
#include "flows/FlowWindow.h"
#include "flows/RouteNodes.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "shell/SharedState.h"
#include "widgets/FrmAbout.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"
#include "widgets/WindowStatus.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRoomAboutRows = 8;  // pixels, above and below a line together

// A state has a sign of its own form, which tells it where colours do not.
QString SignOf(const Flow& flow, const QString& status) {
  if (status == flow.idle) return u"stateidle"_s;
  if (status == flow.done) return u"statedone"_s;
  if (flow.HasRoute() && status == flow.running) return u"staterunning"_s;
  if (flow.HasRoute() && status == flow.ended) return u"stateended"_s;
  return {};
}

}  // namespace

FlowWindow::FlowWindow(const Flow& flow)
    : flow_(flow),
      sheets_(flow),
      headModel_(sheets_.Heads(), flow.headColumns),
      detailModel_(sheets_.Details(), flow.detailColumns),
      status_(new WindowStatus(this)) {
  setObjectName(flow.window);
  setWindowTitle(flow.caption);
  setWindowIcon(Icon(flow.icon));
  commands_ = new WindowCommands(*this, FlowCommands(flow));
  if (flow.HasRoute()) AddKeyMenus(flow, *commands_);
  LayOut();
  setStatusBar(status_);
  status_->ShowUser(Shared().UserName);
  Connect();
  RefreshFlowCommandsOfHead();
  UseGrid(Grid::Heads);
}

// The models are members and destroyed before the views, which are children: the views must not ask them any more.
FlowWindow::~FlowWindow() {
  for (QTableView* grid : {headGrid_, detailGrid_}) grid->setModel(nullptr);
}

QTableView* FlowWindow::NewGrid(const QString& name, RecordsetModel& model, const std::vector<GridColumn>& columns) {
  auto* grid = new QTableView;
  grid->setObjectName(name);
  grid->setModel(&model);
  grid->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->setAlternatingRowColors(true);
  grid->setWordWrap(false);
  grid->setShowGrid(false);
  grid->setTabKeyNavigation(false);
  grid->setCornerButtonEnabled(false);
  grid->verticalHeader()->hide();
  grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + kRoomAboutRows);
  grid->horizontalHeader()->setHighlightSections(false);
  grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  QList<int> widths;
  const int digit = grid->fontMetrics().horizontalAdvance(u'0');
  for (const GridColumn& column : columns) widths << column.characters * digit;
  RestoreSizes(*grid->horizontalHeader(), flow_.window + u'.' + name, widths);
  for (QObject* watched : {static_cast<QObject*>(grid), static_cast<QObject*>(grid->viewport())})
    watched->installEventFilter(this);
  return grid;
}

void FlowWindow::LayOut() {
  resize(1120, 660);
  splitter_ = new QSplitter(Qt::Vertical, this);
  splitter_->setObjectName(u"HSplitter"_s);
  splitter_->setChildrenCollapsible(false);
  headGrid_ = NewGrid(u"DgFile"_s, headModel_, flow_.headColumns);
  headGrid_->setAccessibleName(flow_.caption);
  headGrid_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  headModel_.SetDecoration([this](const QString& field, const QString& text) -> QVariant {
    const QString sign = field == flow_.statusColumn ? SignOf(flow_, text) : QString();
    return sign.isEmpty() ? QVariant() : Icon(sign);
  });
  detailGrid_ = NewGrid(u"DgDetails"_s, detailModel_, flow_.detailColumns);
  detailGrid_->setAccessibleName(u"处理明细"_s);
  detailGrid_->setSelectionMode(QAbstractItemView::SingleSelection);
  AddEmptyHint(*headGrid_, flow_.emptyHint);
  AddEmptyHint(*detailGrid_, u"这里列出选中处理单的明细。点击这里，再用“添加”录入。"_s);

  auto* lower = new QWidget(splitter_);
  auto* column = new QVBoxLayout(lower);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  route_ = new QLabel(lower);
  route_->setObjectName(u"LblRoute"_s);
  route_->setIndent(kRoomAboutRows);
  route_->setWordWrap(true);
  route_->hide();
  column->addWidget(route_);
  column->addWidget(detailGrid_, 1);
  splitter_->addWidget(headGrid_);
  splitter_->addWidget(lower);
  splitter_->setStretchFactor(0, 3);
  splitter_->setStretchFactor(1, 2);
  setCentralWidget(splitter_);
  RestoreSizes(*splitter_, flow_.window + u".Rows"_s, {360, 240});
}

void FlowWindow::KeepLayOut() const {
  KeepSizes(*splitter_, flow_.window + u".Rows"_s);
  for (const QTableView* grid : {headGrid_, detailGrid_})
    KeepSizes(*grid->horizontalHeader(), flow_.window + u'.' + grid->objectName());
}

void FlowWindow::Connect() {
  const auto key = [this](void (FlowWindow::*work)()) {
    return [this, work] {
      RunKey([&] {
        if (sheets_.HasHeads()) (this->*work)();
      });
    };
  };
  commands_->OnEntry(u"mnuAddNew"_s, key(&FlowWindow::AddDetail));
  commands_->OnEntry(u"mnuModify"_s, key(&FlowWindow::ModifyCurrent));
  commands_->OnEntry(u"mnuDelete"_s, key(&FlowWindow::DeleteCurrent));
  commands_->OnEntry(u"mnuSearch"_s, [this] { RunKey([this] { FindOption(false); }); });
  commands_->OnEntry(u"mnuShowAll"_s, [this] { RunKey([this] { LoadFiles(); }); });
  commands_->OnEntry(u"mnuSeeFile"_s, [this] { RunKey([this] { SeeFile(); }); });
  commands_->OnEntry(u"mnuPrint"_s, [this] { RunKey([this] { Print(); }); });
  commands_->OnEntry(u"mnuExit"_s, [this] { close(); });
  commands_->OnEntry(u"mnuHelpTitle"_s, [this] { OpenHelp(this, sheets_.Reminds() ? u"文件催办.htm"_s : flow_.help); });
  commands_->OnEntry(u"mnuAbout"_s, [] {
    FrmAbout about;
    ShowModal(about);
  });
  ConnectGuarded(headGrid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                 [this](const QModelIndex& current) { TakeRow(current.row()); });
  ConnectGuarded(detailGrid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                 [this](const QModelIndex& current) {
                   if (!showing_ && current.isValid()) sheets_.GoToDetail(current.row() + 1);
                 });
  for (QTableView* grid : {headGrid_, detailGrid_})
    ConnectGuarded(grid, &QTableView::doubleClicked, this, [this] { RunKey([this] { ModifyCurrent(); }); });
  if (flow_.HasRoute()) ConnectRoute();
}

void FlowWindow::ConnectRoute() {
  const auto on = [this](const QStringList& names, std::function<void()> work) {
    for (const QString& name : names) ConnectGuarded(findChild<QAction*>(name), &QAction::triggered, this, work);
  };
  on({u"StartRead"_s, flow_.startEntry}, [this] { RunRoute(&FlowRoute::StartRead); });
  on({u"NextRead"_s, u"mnuNextFlow"_s}, [this] { RunRoute(&FlowRoute::NextRead); });
  on({u"Choise"_s, u"mnuChoice"_s}, [this] { Choise(); });
  on({u"EditFlow"_s, u"mnuEidtFlow"_s}, [this] { EditFlow(); });
  on({u"Notion"_s, u"mnuAllNotion"_s}, [this] { ShowNotion({}); });
  on({u"PNotion"_s, u"mnuNotion"_s}, [this] { ShowNotion(Shared().UserId); });
  on({u"DelBatch"_s}, [this] { RunKey([this] { DeleteMany(false); }); });
  on({u"DelAll"_s}, [this] { RunKey([this] { DeleteMany(true); }); });
  on({u"EasyFind"_s}, [this] { RunKey([this] { FindOption(true); }); });
  on({u"FHFind"_s}, [this] { RunKey([this] { FindOption(false); }); });
}

// While the grids are filled their current rows follow the record sets, not the other way round.
void FlowWindow::ShowHeads() {
  {
    const QScopedValueRollback filling(showing_, true);
    headModel_.Reset();
    if (sheets_.IsOnHead()) headGrid_->selectRow(int(sheets_.Heads().AbsolutePosition()) - 1);
  }
  RefreshFlowCommandsOfHead();
  if (!sheets_.HasHeads()) UseGrid(Grid::Heads);
  ShowDetails();
  ShowRoute();
  ShowPosition();
}

void FlowWindow::ShowDetails() {
  const QScopedValueRollback filling(showing_, true);
  detailModel_.Reset();
  if (sheets_.IsOnDetail()) detailGrid_->selectRow(int(sheets_.Details().AbsolutePosition()) - 1);
}

void FlowWindow::ShowCurrentHead() {
  ShowDetails();
  if (!sheets_.IsOnHead()) return;
  headModel_.TellChanged(int(sheets_.Heads().AbsolutePosition()) - 1);
  RefreshFlowCommandsOfHead();
  ShowRoute();
}

// What the work threw is told before what keeps the head from being shown.
void FlowWindow::ThenShowHead(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception&) {
    IgnoreErrors([this] { ShowCurrentHead(); });
    throw;
  }
  ShowCurrentHead();
}

// The route of the current head as a line of steps; the one where it stands is marked.
void FlowWindow::ShowRoute() {
  if (!flow_.HasRoute() || sheets_.Reminds()) return;
  std::vector<RouteNode> nodes;
  QString current;
  if (sheets_.IsOnHead()) {
    nodes = RouteFromStart(ReadRoute(sheets_.Key()));
    current = sheets_.IsIdle() ? QString() : ReadCurrentNode(sheets_.Key());
  }
  QStringList steps;
  for (const RouteNode& node : nodes) {
    const QString members = node.members.simplified().toHtmlEscaped();
    steps << (node.number == current ? u"<b>▶ %1</b>"_s.arg(members) : members);
  }
  const bool ended = sheets_.IsOnHead() && sheets_.Head(flow_.statusColumn) == flow_.ended;
  steps << (ended ? u"<b>✔ 结束</b>"_s : u"结束"_s);
  route_->setText(u"流程： "_s + steps.join(u" → "_s));
  route_->setVisible(!nodes.empty());
}

void FlowWindow::ShowPosition() {
  const Recordset& heads = sheets_.Heads();
  status_->ShowRecords(sheets_.HasHeads()
                           ? u"第 %1 张 / 共 %2 张"_s.arg(heads.AbsolutePosition()).arg(heads.RecordCount())
                           : u"没有处理单"_s);
}

}  // namespace folvane
