#include "entry/EntryStatus.h"

#include <QLabel>

#include "widgets/PlainTip.h"
#include "widgets/StatusPanel.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

EntryStatus::EntryStatus(QWidget* parent) : QStatusBar(parent) {
  setObjectName(u"StbRecordView"_s);
  work_ = NewStatusPanel(u"Panel(1)"_s, this);
  note_ = NewStatusPanel(u"Note"_s, this);
  note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long note does not widen the window
  records_ = NewStatusPanel(u"RecordView"_s, this);
  user_ = NewStatusPanel(u"UserName"_s, this);
  addWidget(work_, 1);
  addWidget(note_, 2);
  addPermanentWidget(records_);
  addPermanentWidget(user_);
  ShowNote({});
}

void EntryStatus::ShowUser(const QString& name) { user_->setText(u"当前用户："_s + name); }

void EntryStatus::ShowWork(const QString& text) {
  work_->setText(text);
  work_->repaint();
}

void EntryStatus::ShowNote(const QString& text) {
  note_->setText(text);
  note_->setToolTip(PlainTip(text));
  note_->setVisible(!text.isEmpty());  // the work panel has all the room until there is something to say
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
