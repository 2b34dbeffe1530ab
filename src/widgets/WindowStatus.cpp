#include "widgets/WindowStatus.h"

#include <QLabel>

#include "shell/EventGuard.h"
#include "widgets/PlainTip.h"
#include "widgets/StatusPanel.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

WindowStatus::WindowStatus(QWidget* parent) : QStatusBar(parent) {
  setObjectName(u"Sta"_s);
  records_ = NewStatusPanel(u"RecordCount"_s, this);
  notice_ = NewStatusPanel(u"Notice"_s, this);
  notice_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long notice does not widen the window
  user_ = NewStatusPanel(u"UserName"_s, this);
  addWidget(records_);
  addWidget(notice_, 1);
  addPermanentWidget(user_);
}

void WindowStatus::ShowUser(const QString& name) { user_->setText(u"登录用户："_s + name); }

void WindowStatus::ShowRecords(const QString& text) { records_->setText(text); }

// The panel is one line; whoever needs the rest of a long text has it in the tip.
void WindowStatus::ShowNotice(const QString& text, const QString& details) {
  notice_->setText(text.simplified());
  notice_->setToolTip(PlainTip(details.isEmpty() ? text : text + u'\n' + details));
  notice_->repaint();
}

void WindowStatus::RunTrapped(const std::function<void()>& command) {
  try {
    command();
  } catch (const std::exception& error) {
    ShowFailure(ErrorText(error));
  }
}

void WindowStatus::ShowFailure(const QString& reason) { ShowNotice(u"未能完成："_s + reason); }

}  // namespace folvane
