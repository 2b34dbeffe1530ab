#include "components/common/Notice.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

namespace folvane::notices {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kCancel = 2, kYes = 6, kNo = 7;

namespace Flag {
constexpr int kYesNoCancel = 3, kYesNo = 4, kCritical = 16, kQuestion = 32, kWarning = 48, kInformation = 64;
}

QMessageBox::Icon IconOf(int flags) {
  switch (flags & 0x70) {
    case Flag::kInformation:
      return QMessageBox::Information;
    case Flag::kWarning:
      return QMessageBox::Warning;
    case Flag::kQuestion:
      return QMessageBox::Question;
    default:
      return QMessageBox::Critical;
  }
}

int Show(const MessageRequest& request) {
  if (Services().messageBox) return Services().messageBox(request);
  QMessageBox box(QApplication::activeWindow());
  box.setWindowTitle(request.title);
  box.setText(request.text);
  box.setDetailedText(request.details);
  box.setTextFormat(Qt::PlainText);
  box.setIcon(IconOf(request.flags));
  const int keys = request.flags & 0xF;
  if (keys != Flag::kYesNo && keys != Flag::kYesNoCancel) {
    box.addButton(u"确定"_s, QMessageBox::AcceptRole);
    box.exec();
    return 0;
  }
  const QAbstractButton* yes = box.addButton(u"是(&Y)"_s, QMessageBox::YesRole);
  const QAbstractButton* no = box.addButton(u"否(&N)"_s, QMessageBox::NoRole);
  if (keys == Flag::kYesNoCancel) box.setEscapeButton(box.addButton(u"取消(&C)"_s, QMessageBox::RejectRole));
  box.exec();
  if (box.clickedButton() == yes) return kYes;
  return box.clickedButton() == no ? kNo : kCancel;
}

}  // namespace

void Tell(const QString& text, int flags, const QString& details) { Show({text, flags, kNoticeTitle, {}, details}); }

void TellError(const std::exception& error) {
  const auto* known = dynamic_cast<const DataError*>(&error);
  const bool hasStatement = known && !known->Statement().isEmpty();
  Tell(QString::fromUtf8(error.what()), Flag::kCritical, hasStatement ? u"语句："_s + known->Statement() : QString());
}

bool Ask(const QString& question, const QString& title, int icon) {
  return Show({question, Flag::kYesNo | icon, title}) == kYes;
}

Choice AskThreeWays(const QString& question, const QString& title) {
  switch (Show({question, Flag::kYesNoCancel | kQuestionIcon, title})) {
    case kYes:
      return Choice::Yes;
    case kNo:
      return Choice::No;
    default:
      return Choice::Cancel;
  }
}

QString AskForPath(const QString& title, const QString& proposal, const QString& filter) {
  if (Services().fileDialog) return Services().fileDialog({true, title, proposal, filter});
  QFileDialog dialog(QApplication::activeWindow(), title, proposal,
                     u"%1 (%2)"_s.arg(filter.section(u'|', 0, 0), filter.section(u'|', 1, 1)));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(filter.section(u'.', 1));
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace folvane::notices
