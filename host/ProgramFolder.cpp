#include "host/ProgramFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace folvane::host {

QString ProgramFolder() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(folder);
  return folder;
}

}  // namespace folvane::host
