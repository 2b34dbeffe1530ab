#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "archiving/ArchiveFields.h"
#include "archiving/FrmArchive.h"
#include "records/FilterBar.h"
#include "records/ListStatus.h"
#include "records/ParameterView.h"
#include "records/RecordList.h"
#include "widgets/KeptSizes.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kForecastDelay = 300;  // ms: not at each key that is typed
const QString kArchiveColumns = u"FrmArchive.Columns"_s;

QCheckBox* NewCheckBox(QWidget* parent, const QString& name, const QString& caption, const QString& tip) {
  auto* box = new QCheckBox(caption, parent);
  box->setObjectName(name);
  box->setToolTip(tip);
  return box;
}

QLabel* NewLine(QWidget* parent, const QString& name) {
  QLabel* line = NewHint({}, parent);
  line->setObjectName(name);
  line->setTextFormat(Qt::PlainText);
  return line;
}

}  // namespace

void FrmArchive::LayOut() {
  resize(1180, 680);
  status_ = new ListStatus(this);
  status_->setObjectName(u"StatusBar1"_s);
  setStatusBar(status_);
  commands_ = std::make_unique<WindowCommands>(*this, ArchiveCommandDesign());
  columns_ = new QSplitter(Qt::Horizontal, this);
  columns_->setObjectName(u"VSplitter"_s);
  columns_->setChildrenCollapsible(false);
  AddTreeView();
  AddListView();
  AddPanel();
  columns_->setStretchFactor(1, 1);
  setCentralWidget(columns_);
  AddParameterView(parameters_, *this);
  RestoreSizes(*columns_, kArchiveColumns, {220, 660, 300});
  forecastDue_ = new QTimer(this);
  forecastDue_->setSingleShot(true);
  forecastDue_->setInterval(kForecastDelay);
}

void FrmArchive::AddTreeView() {
  treeView_ = new QTreeView(columns_);
  treeView_->setObjectName(u"TvwFileClass"_s);
  treeView_->setMinimumWidth(140);
}

void FrmArchive::AddListView() {
  auto* middle = new QWidget(columns_);
  filterBar_ = new FilterBar(middle);
  auto* caption = new QLabel(u"未归档文件列表："_s, middle);
  caption->setObjectName(u"LblList"_s);
  listView_ = new RecordListView(middle);
  listView_->setObjectName(u"lstData"_s);
  listView_->setAccessibleName(u"未归档文件列表"_s);
  listView_->header()->setSectionsClickable(true);
  caption->setBuddy(listView_);
  listHint_ = new ViewHint(*listView_, u"ListHint"_s);
  tickAll_ = NewCheckBox(middle, u"Check3"_s, u"选择全部"_s, u"勾选列表中已读出的全部文件 (Ctrl+A)"_s);
  takeOriginals_ = NewCheckBox(middle, u"Check2"_s, u"接收原文"_s, u"归档时将原文一并转入目标库"_s);
  formNumber_ = NewCheckBox(middle, u"Check1"_s, u"形成档号"_s, u"档号总是按目标库的档号格式形成"_s);
  ticked_ = NewLine(middle, u"LblTicked"_s);
  ticked_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  ticked_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* top = new QHBoxLayout;
  top->setContentsMargins(9, 4, 9, 0);
  top->setSpacing(14);
  top->addWidget(caption);
  top->addWidget(ticked_, 1);
  auto* boxes = new QHBoxLayout;
  boxes->setContentsMargins(9, 2, 9, 6);
  boxes->setSpacing(14);
  for (QCheckBox* box : {tickAll_, takeOriginals_, formNumber_}) boxes->addWidget(box);
  boxes->addStretch();
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(filterBar_);
  column->addLayout(top);
  column->addWidget(listView_, 1);
  column->addLayout(boxes);
}

void FrmArchive::AddPanel() {
  panel_ = new QGroupBox(u"归档信息"_s, columns_);
  panel_->setObjectName(u"FraArchive"_s);
  panel_->setMinimumWidth(220);
  fields_ = new ArchiveFields(panel_);
  forecast_ = NewLine(panel_, u"LblForecast"_s);
  forecast_->setWordWrap(true);
  ok_ = new QPushButton(Icon(u"archive"_s), u"归档(&A)"_s, panel_);
  ok_->setObjectName(u"CmdOK"_s);
  ok_->setToolTip(u"按上面的档号字段，将勾选的文件归档"_s);
  auto* keys = new QHBoxLayout;
  keys->addStretch();
  keys->addWidget(ok_);
  auto* column = new QVBoxLayout(panel_);
  column->addWidget(fields_, 1);
  column->addWidget(forecast_);
  column->addLayout(keys);
}

void FrmArchive::End() {
  KeepSizes(*columns_, kArchiveColumns);
  list_->KeepColumnWidths();
  if (records_.IsOpen()) records_.Close();
}

}  // namespace folvane
