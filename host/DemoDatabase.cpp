#include "host/DemoDatabase.h"

#include <QFileInfo>

#include <folvane/HostServices.h>

#include "host/demo/DemoDatabase.h"

namespace folvane::host {

QString ProvideDemoDatabase(int records) {
  const QString folder = Services().programDirectory;
  const QString file = folder + QStringLiteral("/demo.db");
  if (!QFileInfo::exists(file)) {
    demo::DemoOptions options;
    options.records = records;
    options.today = Services().now().date();
    demo::MakeDemoFile(file, options);
  }
  if (!QFileInfo::exists(folder + QStringLiteral("/RegIDFormula.Ini"))) demo::WriteDemoProfiles(folder);
  demo::WriteDemoReports(folder);
  return file;
}

}  // namespace folvane::host
