#include <QLabel>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>

#include "designer/CodesPage.h"
#include "designer/DesignTree.h"
#include "designer/DesignerCommands.h"
#include "designer/DictionariesPage.h"
#include "designer/FieldsPage.h"
#include "designer/FindingsPanel.h"
#include "designer/FormPage.h"
#include "designer/FrmDesigner.h"
#include "designer/ListPage.h"
#include "designer/NumberPage.h"
#include "designer/PlacePage.h"
#include "designer/ReportsPage.h"
#include "designer/SearchPage.h"
#include "designer/TransfersPage.h"
#include "designer/UsersPage.h"
#include "shell/SharedState.h"
#include "widgets/KeptSizes.h"
#include "widgets/WindowStatus.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kColumnSizes = u"FrmDesigner.Columns"_s, kRowSizes = u"FrmDesigner.Rows"_s;

}  // namespace

void FrmDesigner::LayOut() {
  resize(1180, 740);
  status_ = new WindowStatus(this);
  status_->ShowUser(Shared().UserName);
  setStatusBar(status_);
  commands_ = std::make_unique<WindowCommands>(*this, DesignerCommands());
  columns_ = new QSplitter(Qt::Horizontal, this);
  columns_->setChildrenCollapsible(false);
  tree_ = new DesignTree(session_, {{u"DictionariesPage"_s, u"字典"_s, u"row1"_s},
                                    {u"CodesPage"_s, u"全宗、实体分类和保管期限"_s, u"cent"_s},
                                    {u"TransfersPage"_s, u"归档对应"_s, u"archive"_s},
                                    {u"ReportsPage"_s, u"报表"_s, u"print"_s},
                                    {u"UsersPage"_s, u"用户和权限"_s, u"user"_s}});
  tree_->setMinimumWidth(140);
  rows_ = new QSplitter(Qt::Vertical);
  findings_ = new FindingsPanel(session_);
  rows_->addWidget(NewPages());
  rows_->addWidget(findings_);
  rows_->setStretchFactor(0, 1);
  columns_->addWidget(tree_);
  columns_->addWidget(rows_);
  columns_->setStretchFactor(1, 1);
  setCentralWidget(columns_);
  RestoreSizes(*columns_, kColumnSizes, {230, 950});
  RestoreSizes(*rows_, kRowSizes, {500, 160});
}

QWidget* FrmDesigner::NewPages() {
  pages_ = new QStackedWidget;
  pages_->setObjectName(u"Pages"_s);
  intro_ = new QLabel;
  intro_->setObjectName(u"LblIntro"_s);
  intro_->setAlignment(Qt::AlignCenter);
  intro_->setWordWrap(true);
  pages_->addWidget(intro_);
  classPage_ = new ClassPage(session_);
  pages_->addWidget(classPage_);
  tablePages_ = new QTabWidget;
  tablePages_->setObjectName(u"TabTable"_s);
  tablePages_->addTab(new TablePage(session_), u"表(&1)"_s);
  tablePages_->addTab(new FieldsPage(session_), u"字段(&2)"_s);
  tablePages_->addTab(new FormPage(session_), u"录入界面(&3)"_s);
  tablePages_->addTab(new ListPage(session_), u"列表(&4)"_s);
  tablePages_->addTab(new SearchPage(session_), u"查询(&5)"_s);
  tablePages_->addTab(new NumberPage(session_), u"档号(&6)"_s);
  tablePages_->setCurrentIndex(1);
  pages_->addWidget(tablePages_);
  pages_->addWidget(new DictionariesPage(session_));
  pages_->addWidget(new CodesPage(session_));
  pages_->addWidget(new TransfersPage(session_));
  pages_->addWidget(new ReportsPage(session_));
  pages_->addWidget(new UsersPage(session_));
  return pages_;
}

void FrmDesigner::KeepSplitters() const {
  KeepSizes(*columns_, kColumnSizes);
  KeepSizes(*rows_, kRowSizes);
}

}  // namespace folvane::designer
