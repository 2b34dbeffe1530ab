#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "archiving/FrmSearchResult.h"
#include "archiving/PageLink.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kProgressWidth = 160;

QPushButton* NewButton(QWidget* parent, const QString& name, const QString& caption, const QString& tip) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

void FrmSearchResult::MakeControls() {
  setObjectName(u"FrmSearchResult"_s);
  setWindowTitle(u"合并一件 - 选择记录"_s);
  setWindowIcon(Icon(u"merge"_s));
  list_->setObjectName(u"LVData"_s);
  list_->setAccessibleName(u"查到的记录"_s);
  listHint_ = new ViewHint(*list_, u"ListHint"_s);
  frame_ = new QGroupBox(this);
  frame_->setObjectName(u"Frame1"_s);
  target_ = new QLabel(this);
  target_->setObjectName(u"LblTarget"_s);
  ticked_ = NewHint({}, this);
  ticked_->setObjectName(u"LblTicked"_s);
  page_ = new QLabel(frame_);
  page_->setObjectName(u"Label1"_s);
  for (QLabel* label : {target_, ticked_, page_}) label->setTextFormat(Qt::PlainText);
  // A long title or report does not widen the window.
  for (QLabel* label : {target_, ticked_}) label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  links_ = {new PageLink(u"LblPage(0)"_s, u"首条"_s, u"到第一条记录"_s, frame_),
            new PageLink(u"LblPage(1)"_s, u"上一页"_s, u"向前三十条记录"_s, frame_),
            new PageLink(u"LblPage(2)"_s, u"下一页"_s, u"向后三十条记录"_s, frame_),
            new PageLink(u"LblPage(3)"_s, u"末条"_s, u"读出其余的记录，到最后一条"_s, frame_)};
  progress_ = new QProgressBar(this);
  progress_->setObjectName(u"ProResult"_s);
  progress_->setAccessibleName(u"读出或合并记录的进度"_s);
  progress_->setMaximumWidth(kProgressWidth);
  progress_->setTextVisible(false);
  progress_->hide();
  search_ = NewButton(this, u"CmdSearch"_s, u"查询(&S)..."_s, u"按设定的字段查出要合并的记录"_s);
  search_->setIcon(Icon(u"search"_s));
  ok_ = NewButton(this, u"CmdOK"_s, u"合并(&O)"_s, u"将勾选的记录并入选中的文件"_s);
  exit_ = NewButton(this, u"CmdExit"_s, u"退出(&X)"_s, u"不合并，关闭窗口 (Esc)"_s);
}

void FrmSearchResult::LayOut() {
  resize(860, 560);
  auto* top = new QHBoxLayout;
  top->addWidget(target_, 1);
  top->addWidget(search_);
  auto* inFrame = new QHBoxLayout(frame_);
  inFrame->setContentsMargins(10, 4, 10, 4);
  inFrame->setSpacing(14);
  inFrame->addWidget(page_);
  inFrame->addStretch();
  for (PageLink* link : links_) inFrame->addWidget(link);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(ticked_, 1);
  bottom->addWidget(progress_);
  bottom->addWidget(ok_);
  bottom->addWidget(exit_);
  auto* column = new QVBoxLayout(this);
  column->addLayout(top);
  column->addWidget(list_, 1);
  column->addWidget(frame_);
  column->addLayout(bottom);
  setTabOrder(search_, list_);
  setTabOrder(list_, links_[0]);
  for (size_t at = 1; at < links_.size(); ++at) setTabOrder(links_[at - 1], links_[at]);
  setTabOrder(links_.back(), ok_);
  setTabOrder(ok_, exit_);
}

}  // namespace folvane
