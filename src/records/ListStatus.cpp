#include "records/ListStatus.h"

#include <QProgressBar>
#include <QToolButton>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kProgressWidth = 160;
constexpr int kBehindNotice = 2;  // the place of the progress among the panels

}  // namespace

ListStatus::ListStatus(QWidget* parent)
    : WindowStatus(parent), progress_(new QProgressBar(this)), stop_(new QToolButton(this)) {
  progress_->setObjectName(u"ProMain"_s);
  progress_->setMaximumWidth(kProgressWidth);
  progress_->setTextVisible(false);
  insertPermanentWidget(kBehindNotice, progress_);
  progress_->hide();
  stop_->setObjectName(u"CmdStop"_s);
  stop_->setText(u"取消"_s);
  stop_->setToolTip(u"取消正在进行的操作 (Esc)"_s);
  insertPermanentWidget(kBehindNotice + 1, stop_);
  stop_->hide();
  SetStarted(false);
}

void ListStatus::ShowNothing() { ShowRecords({}); }

void ListStatus::ShowNoRecords() { ShowRecords(u"当前无记录"_s); }

void ListStatus::ShowPosition(qint64 position, qint64 count) {
  ShowRecords(u"当前记录：第%1条/共%2条"_s.arg(position).arg(count));
}

void ListStatus::ShowDeleted(qint64 records, const QString& left) {
  const QString deleted = u"已删除 %1 条记录"_s.arg(records);
  ShowNotice(left.isEmpty() ? deleted : deleted + u"；"_s + left);
}

void ListStatus::ShowProgress(int done, int maximum) {
  progress_->setMaximum(maximum);
  progress_->setVisible(done >= 0);
  if (done >= 0) progress_->setValue(done);
}

void ListStatus::ShowWork(int done, int maximum) {
  ShowProgress(done, maximum);
  stop_->setVisible(done >= 0);
}

QWidget& ListStatus::StopKey() const { return *stop_; }

bool ListStatus::IsStarted() const { return progress_->property("Tag").toString() == u"1"_s; }

void ListStatus::SetStarted(bool started) { progress_->setProperty("Tag", started ? u"1"_s : u"0"_s); }

}  // namespace folvane
