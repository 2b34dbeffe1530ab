#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include "browser/BrowserCommands.h"
#include "browser/FrmMain.h"
#include "browser/OriginalsView.h"
#include "browser/SearchBar.h"
#include "records/FilterBar.h"
#include "records/ListStatus.h"
#include "records/ParameterView.h"
#include "widgets/KeptSizes.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kColumnSizes = u"FrmMain.Columns"_s;
const QString kRowSizes = u"FrmMain.Rows"_s;

}  // namespace

void FrmMain::LayOut() {
  resize(1180, 680);
  status_ = new ListStatus(this);
  commands_ = std::make_unique<BrowserCommands>(*this, *status_);
  setStatusBar(status_);
  columns_ = new QSplitter(Qt::Horizontal, this);
  columns_->setObjectName(u"VSplitter"_s);
  columns_->setChildrenCollapsible(false);
  AddTreeView();
  AddListViews();
  AddParameterView(parameters_, *this);
  columns_->setStretchFactor(1, 1);
  setCentralWidget(columns_);
  RestoreSplitters();
}

void FrmMain::AddTreeView() {
  treeView_ = new QTreeView(columns_);
  treeView_->setObjectName(u"TV_File"_s);
  treeView_->setMinimumWidth(140);
}

void FrmMain::AddListViews() {
  auto* right = new QWidget(columns_);
  auto* column = new QVBoxLayout(right);
  column->setContentsMargins(0, 0, 0, 0);
  search_ = new SearchBar(right);
  filterBar_ = new FilterBar(right);
  rows_ = new QSplitter(Qt::Vertical, right);
  rows_->setChildrenCollapsible(false);
  listView_ = new RecordListView(rows_);
  listView_->setObjectName(u"LVData"_s);
  listView_->setAccessibleName(u"记录列表"_s);
  listView_->header()->setSectionsClickable(true);
  listHint_ = new ViewHint(*listView_, u"ListHint"_s);
  originals_ = new OriginalsView(rows_);
  rows_->setStretchFactor(0, 1);
  column->addWidget(search_);
  column->addWidget(filterBar_);
  column->addWidget(rows_, 1);
}

void FrmMain::RestoreSplitters() {
  RestoreSizes(*columns_, kColumnSizes, {250, 930});
  RestoreSizes(*rows_, kRowSizes, {420, 130});
}

void FrmMain::KeepSplitters() const {
  KeepSizes(*columns_, kColumnSizes);
  KeepSizes(*rows_, kRowSizes);
}

}  // namespace folvane
