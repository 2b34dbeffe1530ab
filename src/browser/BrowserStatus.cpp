#include "browser/BrowserStatus.h"

#include <QLabel>
#include <QProgressBar>

#include "shell/EventGuard.h"
#include "widgets/StatusPanel.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kProgressWidth = 160;

}  // namespace

BrowserStatus::BrowserStatus(QWidget* parent) : QStatusBar(parent) {
  setObjectName(u"Sta"_s);
  records_ = NewStatusPanel(u"RecordCount"_s, this);
  notice_ = NewStatusPanel(u"Notice"_s, this);
  notice_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  user_ = NewStatusPanel(u"UserName"_s, this);
  progress_ = new QProgressBar(this);
  progress_->setObjectName(u"ProMain"_s);
  progress_->setMaximumWidth(kProgressWidth);
  progress_->setTextVisible(false);
  addWidget(records_);
  addWidget(notice_, 1);
  addPermanentWidget(progress_);
  addPermanentWidget(user_);
  progress_->hide();
  SetStarted(false);
}

void BrowserStatus::ShowUser(const QString& name) { user_->setText(u"登录用户："_s + name); }

void BrowserStatus::ShowNothing() { records_->clear(); }

void BrowserStatus::ShowNoRecords() { records_->setText(u"当前无记录"_s); }

void BrowserStatus::ShowPosition(qint64 position, qint64 count) {
  records_->setText(u"当前记录：第%1条/共%2条"_s.arg(position).arg(count));
}

// The panel is one line; whoever needs the rest of a long text has it in the tip.
void BrowserStatus::ShowNotice(const QString& text) {
  notice_->setText(text.simplified());
  notice_->setToolTip(text);
  notice_->repaint();
}

void BrowserStatus::RunTrapped(const std::function<void()>& command) {
  try {
    command();
  } catch (const std::exception& error) {
    ShowNotice(u"未能完成："_s + ErrorText(error));
  }
}

void BrowserStatus::ShowProgress(int done, int maximum) {
  progress_->setMaximum(maximum);
  progress_->setVisible(done >= 0);
  if (done >= 0) progress_->setValue(done);
}

bool BrowserStatus::IsStarted() const { return progress_->property("Tag").toString() == u"1"_s; }

void BrowserStatus::SetStarted(bool started) { progress_->setProperty("Tag", started ? u"1"_s : u"0"_s); }

}  // namespace folvane
