#include "entry/EntryStatus.h"

#include <QLabel>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPanelIndent = 6;

}  // namespace

EntryStatus::EntryStatus(QWidget* parent) : QStatusBar(parent) {
  setObjectName(u"StbRecordView"_s);
  work_ = new QLabel(this);
  work_->setObjectName(u"Panel(1)"_s);
  records_ = new QLabel(this);
  records_->setObjectName(u"RecordView"_s);
  user_ = new QLabel(this);
  user_->setObjectName(u"UserName"_s);
  for (QLabel* panel : {work_, records_, user_}) {
    panel->setTextFormat(Qt::PlainText);
    panel->setIndent(kPanelIndent);
  }
  addWidget(work_, 1);
  addPermanentWidget(records_);
  addPermanentWidget(user_);
}

void EntryStatus::ShowUser(const QString& name) { user_->setText(u"当前用户："_s + name); }

void EntryStatus::ShowWork(const QString& text) {
  work_->setText(text);
  work_->repaint();
}

void EntryStatus::ShowOpened(qint64 position, qint64 count) {
  records_->setText(u"记录: %1/%2"_s.arg(position).arg(count));
}

void EntryStatus::ShowPosition(qint64 position, qint64 count) {
  records_->setText(u"当前记录：第%1条/共%2条"_s.arg(position).arg(count));
}

void EntryStatus::ShowNoRecords() { records_->setText(u"当前无记录"_s); }

void EntryStatus::ShowCount(qint64 count) { records_->setText(u"当前共%1条"_s.arg(count)); }

}  // namespace folvane
