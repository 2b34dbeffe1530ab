#include "designer/DesignGrid.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "designer/GridDelegate.h"
#include "designer/GridModel.h"
#include "shell/EventGuard.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
using namespace Qt::Literals::StringLiterals;

DesignGrid::DesignGrid(GridModel* model, const QString& name, const QString& caption, const QString& hint,
                       QWidget* parent)
    : QWidget(parent), model_(*model), name_(name), view_(new QTableView), bar_(new QToolBar) {
  model->setParent(this);
  view_->setObjectName(name);
  view_->setAccessibleName(caption);
  view_->setModel(model);
  view_->setItemDelegate(new GridDelegate(view_));
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                         QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  view_->setAlternatingRowColors(true);
  view_->setWordWrap(false);
  view_->setTabKeyNavigation(false);
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 8);
  view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->horizontalHeader()->setHighlightSections(false);
  view_->installEventFilter(this);
  AddEmptyHint(*view_, hint);

  QList<int> widths;
  for (int column = 0; column < model->columnCount(); ++column)
    widths << fontMetrics().averageCharWidth() * model->Column(column).width;
  RestoreSizes(*view_->horizontalHeader(), u"FrmDesigner."_s + name, widths);

  bar_->setIconSize(QSize(16, 16));
  add_ = NewKey(u"Add"_s, u"new"_s, u"新增"_s, u"Ins"_s, &DesignGrid::Add);
  remove_ = NewKey(u"Delete"_s, u"del"_s, u"删去选中的行"_s, u"Ctrl+Del"_s, &DesignGrid::Remove);
  if (model->CanMove()) {
    up_ = NewKey(u"Up"_s, u"moveup"_s, u"上移"_s, u"Alt+Up"_s, &DesignGrid::MoveUp);
    down_ = NewKey(u"Down"_s, u"movedown"_s, u"下移"_s, u"Alt+Down"_s, &DesignGrid::MoveDown);
  }
  auto* title = new QLabel(caption);
  title->setBuddy(view_);
  auto* head = new QHBoxLayout;
  head->addWidget(title);
  head->addStretch();
  head->addWidget(bar_);
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(0, 0, 0, 0);
  down->setSpacing(2);
  down->addLayout(head);
  down->addWidget(view_, 1);
  setFocusProxy(view_);
  ConnectGuarded(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
                 [this](const QModelIndex& now, const QModelIndex& before) {
                   if (now.row() == before.row()) return;
                   Enable();
                   Q_EMIT CurrentRowChanged();
                 });
  Refresh();
}

DesignGrid::~DesignGrid() { KeepSizes(*view_->horizontalHeader(), u"FrmDesigner."_s + name_); }

QAction* DesignGrid::NewKey(const QString& name, const QString& icon, const QString& tip, const QString& shortcut,
                            void (DesignGrid::*run)()) {
  auto* key = new QAction(Icon(icon), tip, this);
  key->setObjectName(name_ + name);
  key->setShortcut(QKeySequence(shortcut));
  key->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  key->setToolTip(tip + u" ("_s + shortcut + u')');
  ConnectGuarded(key, &QAction::triggered, this, [this, run] { (this->*run)(); });
  addAction(key);
  bar_->addAction(key);
  return key;
}

void DesignGrid::AddKey(QAction* key) { bar_->addAction(key); }

void DesignGrid::Refresh() {
  const QModelIndex before = view_->currentIndex();
  const int row = before.row(), column = std::max(before.column(), 0);
  model_.Refresh();
  if (!view_->currentIndex().isValid() && model_.rowCount() > 0)
    MakeCurrent(model_.index(std::clamp(row, 0, model_.rowCount() - 1), column));
  Enable();
  Q_EMIT CurrentRowChanged();
}

int DesignGrid::CurrentRow() const { return view_->currentIndex().row(); }

void DesignGrid::GoTo(int row) { MakeCurrent(model_.index(row, std::max(view_->currentIndex().column(), 0))); }

// Also while the Ctrl of a shortcut is held, which would leave a cell unselected.
void DesignGrid::MakeCurrent(const QModelIndex& cell) {
  view_->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> DesignGrid::SelectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& cell : view_->selectionModel()->selectedIndexes()) rows.push_back(cell.row());
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void DesignGrid::Enable() {
  const int row = CurrentRow();
  add_->setEnabled(model_.CanAdd());
  remove_->setEnabled(row >= 0);
  if (!up_) return;
  up_->setEnabled(row > 0);
  down_->setEnabled(row >= 0 && row + 1 < model_.rowCount());
}

void DesignGrid::Add() {
  const int row = model_.Add();
  if (row < 0) return;
  Refresh();
  view_->setFocus();
  for (int column = 0; column < model_.columnCount(); ++column) {
    const QModelIndex cell = model_.index(row, column);
    if (!(model_.flags(cell) & Qt::ItemIsEditable)) continue;
    view_->setCurrentIndex(cell);
    view_->scrollTo(cell);
    return view_->edit(cell);
  }
}

void DesignGrid::Remove() {
  const int row = CurrentRow();
  model_.Remove(SelectedRows());
  Refresh();
  if (model_.rowCount() > 0) GoTo(std::min(row, model_.rowCount() - 1));
}

void DesignGrid::Move(int by) {
  const int to = model_.Move(CurrentRow(), by);
  Refresh();
  GoTo(to);
}

void DesignGrid::CopyCells() const {
  QModelIndexList cells = view_->selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  for (int i = 0; i < cells.size(); ++i) {
    if (i > 0) text += cells[i].row() == cells[i - 1].row() ? u'\t' : u'\n';
    const QVariant check = cells[i].data(Qt::CheckStateRole);
    text += check.isValid() ? (check.toInt() == Qt::Checked ? u"是"_s : u"否"_s) : cells[i].data().toString();
  }
  QApplication::clipboard()->setText(text);
}

void DesignGrid::PasteCells() {
  const QModelIndex start = view_->currentIndex();
  QStringList lines = QApplication::clipboard()->text().remove(u'\r').split(u'\n');
  if (lines.last().isEmpty()) lines.removeLast();
  if (lines.isEmpty()) return;
  model_.PasteAt(start.isValid() ? start.row() : 0, std::max(start.column(), 0), lines);
  Refresh();
}

bool DesignGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& key = static_cast<QKeyEvent&>(*event);
  if (key.matches(QKeySequence::Copy))
    CopyCells();
  else if (key.matches(QKeySequence::Paste))
    RunGuarded([this] { PasteCells(); });
  else
    return false;
  return true;
}

}  // namespace folvane::designer
