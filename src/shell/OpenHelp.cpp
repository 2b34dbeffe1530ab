#include "shell/OpenHelp.h"

#include <QFile>

#include <folvane/HostServices.h>

#include "base/FileUpdate.h"
#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Beside the program, where an installation may have a help file of its own; otherwise the one that was installed with
// the library.
QString HelpFile() {
  const QString name = u"help.chm"_s;
  const QString beside = ProgramFile(name);
  return QFile::exists(beside) ? beside : InstalledFile(name);
}

void SayFileIsMissing() {
  const QString directory = ProgramDirectory();
  ShowMessage(
      u"帮助文件 "_s + directory + u"\\help.chm 不存在\r\n请将 help.chm 文件拷贝到 "_s + directory + u" 路径下。"_s,
      MessageFlag::Information, kSystemTitle);
}

void ShowTopic(QWidget* window, const QString& file, const QString& topic) {
  if (!Services().showHelp) throw FileError(u"没有可以显示帮助文件的程序。"_s);
  Services().showHelp(window, file, topic);
}

}  // namespace

void OpenHelp(QWidget* window, const QString& topic) {
  IgnoreErrors([&] {
    const QString file = HelpFile();
    if (!QFile::exists(file)) return SayFileIsMissing();
    try {
      ShowTopic(window, file, topic);
    } catch (const std::exception& error) {
      ShowMessage(ErrorText(error));
    }
  });
}

}  // namespace folvane
