#include "host/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <folvane/HostServices.h>

#include "host/demo/DemoDatabase.h"

namespace folvane::host {
using namespace Qt::Literals::StringLiterals;

QString ProgramFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(folder);
  return folder;
}

void ProvideSettings() {
  const QString folder = Services().programDirectory;
  if (!QFileInfo::exists(folder + u"/RegIDFormula.Ini"_s)) demo::WriteDemoProfiles(folder);
  demo::WriteDemoReports(folder);
}

QString ProvideDemoDatabase(int records) {
  const QString file = Services().programDirectory + u"/demo.db"_s;
  if (!QFileInfo::exists(file)) {
    demo::DemoOptions options;
    options.records = records;
    options.today = Services().now().date();
    demo::MakeDemoFile(file, options);
  }
  ProvideSettings();
  return file;
}

}  // namespace folvane::host
