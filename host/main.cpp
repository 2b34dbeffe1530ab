#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <folvane/HostServices.h>
#include <folvane/Version.h>

#include "host/Appearance.h"
#include "host/CommandLine.h"
#include "host/Program.h"
#include "host/ProgramFolder.h"
#include "host/tour/RunTour.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// The words of Qt's own dialogs, where the desktop has them in Chinese.
void SpeakChinese(QApplication& application) {
  auto* words = new QTranslator(&application);
  if (words->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(words);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName(u"Norvex"_s);
  QApplication::setApplicationName(u"folvane-demo"_s);
  QApplication::setApplicationVersion(folvane::Version());
  QApplication::setDesktopFileName(u"folvane-demo"_s);
  QApplication::setQuitOnLastWindowClosed(false);
  const folvane::host::Options options = folvane::host::ReadCommandLine(application.arguments());
  SpeakChinese(application);
  folvane::host::ApplyAppearance(application);
  folvane::Services().programDirectory = folvane::host::ProgramFolder();
  return options.tour.isEmpty() ? folvane::host::Run(options) : folvane::host::RunTour(options);
}
