#include "entry/EntryStatus.h"

#include <QLabel>

#include "widgets/StatusPanel.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

EntryStatus::EntryStatus(QWidget* parent) : QStatusBar(parent) {
  setObjectName(u"StbRecordView"_s);
  work_ = NewStatusPanel(u"Panel(1)"_s, this);
  records_ = NewStatusPanel(u"RecordView"_s, this);
  user_ = NewStatusPanel(u"UserName"_s, this);
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
