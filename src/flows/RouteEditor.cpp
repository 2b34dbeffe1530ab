#include "flows/RouteEditor.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>

#include <folvane/Icons.h>

#include "data/Recordset.h"
#include "flows/Flow.h"
#include "shell/EventGuard.h"
#include "shell/Lookups.h"
#include "shell/SharedState.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kUserId = Qt::UserRole + 1;  // of an entry of the people; none for a unit

/// Offers the modes that the route engine knows; any other can be typed.
class ModeDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->addItems({kOneReviewer, kSeveralInTurn});
    return box;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    static_cast<QComboBox*>(editor)->setCurrentText(index.data().toString());
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
    model->setData(index, static_cast<QComboBox*>(editor)->currentText().trimmed());
  }
};

}  // namespace

RouteEditor::RouteEditor(const Flow& flow, const QString& headKey)
    : flow_(flow), headKey_(headKey), read_(ReadStoredRoute(headKey)) {
  setObjectName(u"frmRouteEdit"_s);
  setWindowTitle(u"编辑流程"_s);
  setWindowIcon(Icon(u"order"_s));
  nodes_.setHorizontalHeaderLabels({u"节点"_s, u"成员"_s, u"方式"_s, u"下一节点"_s});
  LayOut();
  FillPeople(flow);
  for (const RouteNode& node : read_.nodes) AppendRow(node);
  Connect();
  ShowFaults();
}

RouteEditor::~RouteEditor() { grid_->setModel(nullptr); }

void RouteEditor::LayOut() {
  resize(760, 440);
  grid_ = new QTableView(this);
  grid_->setObjectName(u"DgNodes"_s);
  grid_->setAccessibleName(u"流程的节点"_s);
  grid_->setModel(&nodes_);
  grid_->setItemDelegateForColumn(Mode, new ModeDelegate(grid_));
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::AllEditTriggers);
  grid_->setTabKeyNavigation(false);
  grid_->setAlternatingRowColors(true);
  grid_->verticalHeader()->hide();
  grid_->horizontalHeader()->setSectionResizeMode(Members, QHeaderView::Stretch);
  grid_->setColumnWidth(Number, 60);
  grid_->setColumnWidth(Mode, 110);
  grid_->setColumnWidth(Next, 80);
  AddEmptyHint(*grid_, u"用“添加节点”开始；每个节点填入成员，最后一个节点的下一节点是 0。"_s);
  add_ = new QPushButton(Icon(u"new"_s), u"添加节点(&A)"_s, this);
  add_->setObjectName(u"CmdAddNode"_s);
  remove_ = new QPushButton(Icon(u"del"_s), u"删除节点(&D)"_s, this);
  remove_->setObjectName(u"CmdDelNode"_s);
  people_ = new QListWidget(this);
  people_->setObjectName(u"lstPeople"_s);
  people_->setAccessibleName(u"人员和单位"_s);
  people_->setToolTip(u"双击或按“加入”，成为选中节点的成员"_s);
  join_ = new QPushButton(Icon(u"prepage"_s), u"加入(&J)"_s, this);
  join_->setObjectName(u"CmdJoin"_s);
  faults_ = new QLabel(this);
  faults_->setObjectName(u"LblFaults"_s);
  faults_->setTextFormat(Qt::PlainText);
  faults_->setWordWrap(true);
  for (QPushButton* key : {add_, remove_, join_}) key->setAutoDefault(false);

  auto* grid = new QGridLayout;
  auto* nodeKeys = new QHBoxLayout;
  nodeKeys->addWidget(add_);
  nodeKeys->addWidget(remove_);
  nodeKeys->addStretch();
  grid->addWidget(grid_, 0, 0);
  grid->addLayout(nodeKeys, 1, 0);
  grid->addWidget(people_, 0, 1);
  grid->addWidget(join_, 1, 1);
  grid->setColumnStretch(0, 3);
  grid->setColumnStretch(1, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->addLayout(grid, 1);
  column->addWidget(faults_);
  const DialogKeys keys(*this);
  ok_ = keys.ok;
  column->addLayout(keys.row);
}

void RouteEditor::FillPeople(const Flow& flow) {
  Recordset users;
  users.Open(u"Select UserID,UserName From UserPopedom Order By UserID"_s, SharedConnection());
  for (; !users.EOF_(); users.MoveNext()) {
    auto* entry = new QListWidgetItem(Icon(u"user"_s), users[u"UserName"_s].Text(), people_);
    entry->setData(kUserId, users[u"UserID"_s].Text());
  }
  QComboBox units;
  FillDictionary(units, flow.unitDictionary);
  for (int at = 0; at < units.count(); ++at) new QListWidgetItem(Icon(u"table"_s), units.itemText(at), people_);
}

void RouteEditor::Connect() {
  for (const auto& [key, work] : {std::pair(add_, &RouteEditor::AddNode), std::pair(remove_, &RouteEditor::RemoveNode),
                                  std::pair(join_, &RouteEditor::AddMember), std::pair(ok_, &RouteEditor::Save)}) {
    ConnectGuarded(key, &QPushButton::clicked, this, [this, work = work] {
      FinishTyping();
      (this->*work)();
    });
  }
  ConnectGuarded(people_, &QListWidget::itemDoubleClicked, this, [this] { AddMember(); });
  ConnectGuarded(&nodes_, &QStandardItemModel::itemChanged, this, [this] { ShowFaults(); });
}

// A key that is pressed by its letter leaves what stands in the open cell where it is.
void RouteEditor::FinishTyping() {
  const QModelIndex cell = grid_->currentIndex();
  if (QWidget* editor = grid_->indexWidget(cell))
    grid_->itemDelegateForIndex(cell)->setModelData(editor, &nodes_, cell);
}

int RouteEditor::CurrentRow() const { return grid_->currentIndex().row(); }

std::vector<RouteNode> RouteEditor::Nodes() const {
  std::vector<RouteNode> nodes;
  for (int row = 0; row < nodes_.rowCount(); ++row) {
    const auto text = [&](int column) { return nodes_.index(row, column).data().toString().trimmed(); };
    nodes.push_back({text(Number), text(Members).replace(u'，', u','), text(Mode), text(Next)});
  }
  return nodes;
}

void RouteEditor::AppendRow(const RouteNode& node) {
  QList<QStandardItem*> row;
  for (const QString& text : {node.number, node.members, node.mode, node.next}) row << new QStandardItem(text);
  nodes_.appendRow(row);
}

// A new node comes behind the last one, which goes on to it from now on.
void RouteEditor::AddNode() {
  qint64 greatest = 0;
  for (const RouteNode& node : Nodes()) greatest = std::max(greatest, qint64(node.number.toInt()));
  const QString number = QString::number(greatest + 1);
  const int last = nodes_.rowCount() - 1;
  if (last >= 0 && nodes_.index(last, Next).data().toString() == kRouteEnd)
    nodes_.setData(nodes_.index(last, Next), number);
  AppendRow({number, {}, kOneReviewer, kRouteEnd});
  grid_->setCurrentIndex(nodes_.index(nodes_.rowCount() - 1, Members));
  ShowFaults();
}

// Whoever went on to the node goes on to the one behind it.
void RouteEditor::RemoveNode() {
  const int row = CurrentRow();
  if (row < 0) return;
  const RouteNode gone = Nodes()[size_t(row)];
  nodes_.removeRow(row);
  for (int at = 0; at < nodes_.rowCount(); ++at) {
    if (nodes_.index(at, Next).data().toString() == gone.number) nodes_.setData(nodes_.index(at, Next), gone.next);
  }
  ShowFaults();
}

// The modes that the engine knows only count the members of a node, so they bear their names; in another mode the user
// is told by the id.
void RouteEditor::AddMember() {
  const int row = CurrentRow();
  const QListWidgetItem* chosen = people_->currentItem();
  if (row < 0 || !chosen) return;
  const QVariant id = chosen->data(kUserId);
  const QString mode = Nodes()[size_t(row)].mode;
  const bool known = mode == kOneReviewer || mode == kSeveralInTurn;
  const QModelIndex members = nodes_.index(row, Members);
  QStringList names = Nodes()[size_t(row)].members.split(u',', Qt::SkipEmptyParts);
  names << (id.isValid() && !known ? id.toString() : chosen->text());
  names.removeDuplicates();
  nodes_.setData(members, names.join(u','));
}

void RouteEditor::ShowFaults() {
  const std::vector<RouteNode> nodes = Nodes();
  const QStringList faults = RouteFaults(nodes);
  ok_->setEnabled(faults.isEmpty());
  if (!faults.isEmpty()) return faults_->setText(u"请改正："_s + faults.join(u'\n'));
  faults_->setText((QStringList{u"流程："_s + RouteInWords(nodes)} + RouteCautions(nodes)).join(u'\n'));
}

void RouteEditor::Save() {
  if (!ok_->isEnabled()) return;  // by what was typed last
  try {
    ReplaceRoute(flow_, headKey_, read_, Nodes());
  } catch (const std::exception& error) {
    return ShowError(error, u"流程没有写入，所做的更改仍保留在窗口中。"_s);
  }
  accept();
}

}  // namespace folvane
