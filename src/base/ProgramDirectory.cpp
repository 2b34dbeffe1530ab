#include "base/ProgramDirectory.h"

#include <QDir>
#include <QFileInfo>

#include <folvane/HostServices.h>

namespace folvane {

QString ProgramDirectory() { return Services().programDirectory; }

QString ProgramFile(const QString& name) { return ExistingPath(QDir(ProgramDirectory()).filePath(name)); }

QString ExistingPath(const QString& path) {
  const QFileInfo file(path);
  if (file.exists()) return path;
  const QStringList names = file.dir().entryList(QDir::Files | QDir::Hidden);
  for (const QString& name : names) {
    if (name.compare(file.fileName(), Qt::CaseInsensitive) == 0) return file.dir().filePath(name);
  }
  return path;
}

}  // namespace folvane
