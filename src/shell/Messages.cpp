#include "shell/Messages.h"

#include <QFileDialog>
#include <QGuiApplication>

#include "shell/MessageBox.h"
#include "shell/ModalWindow.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The box is answered with the plain pointer, even when the routine that shows it has the busy one up.
class PlainPointer {
 public:
  PlainPointer() : busy_(QGuiApplication::overrideCursor() != nullptr) {
    if (busy_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainPointer() {
    if (busy_) QGuiApplication::restoreOverrideCursor();
  }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  bool busy_;
};

int ShowMessageBox(const MessageRequest& request) {
  RequireApplication();
  const PlainPointer pointer;
  MessageBox box(request, CurrentWindow());
  box.exec();
  return box.GivenAnswer();
}

// "Text|*.a;*.b|Text|*.*" as Qt writes it: "Text (*.a *.b);;Text (*)".
QString QtFilter(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype index = 0; index + 1 < parts.size(); index += 2) {
    QString patterns = parts[index + 1];
    patterns.replace(u"*.*"_s, u"*"_s).replace(u';', u' ');
    const QString bare = parts[index].section(u'(', 0, 0).trimmed();  // the patterns may stand in the text already
    filters << u"%1 (%2)"_s.arg(bare, patterns);
  }
  return filters.join(u";;"_s);
}

// "dat" of "Text|*.dat;*.txt".
QString FirstSuffix(const QString& filter) {
  const QString pattern = filter.section(u'|', 1, 1).section(u';', 0, 0);
  const QString suffix = pattern.section(u'.', 1);
  return suffix.contains(u'*') ? QString() : suffix;
}

QString ShowFileDialog(const FileRequest& request) {
  RequireApplication();
  QFileDialog dialog(CurrentWindow(), request.title, request.directory, QtFilter(request.filter));
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (request.save) dialog.setDefaultSuffix(FirstSuffix(request.filter));
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

int ShowMessage(const QString& text, int flags, const QString& title) {
  return ShowMessage(MessageRequest{text, flags, title});
}

int ShowMessage(const MessageRequest& request) {
  return Services().messageBox ? Services().messageBox(request) : ShowMessageBox(request);
}

QString AskForFile(const FileRequest& request) {
  return Services().fileDialog ? Services().fileDialog(request) : ShowFileDialog(request);
}

}  // namespace folvane
