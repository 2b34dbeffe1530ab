#include "base/Surroundings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <dlfcn.h>

#include <folvane/HostServices.h>

namespace folvane {
namespace {

// The file that this code was loaded from: the library, or a program that it is linked into.
QString OwnFile() {
  static const char inHere = 0;
  Dl_info info{};
  dladdr(&inHere, &info);
  return QFile::decodeName(info.dli_fname);
}

}  // namespace

QDate Today() { return Services().now().date(); }

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

QString InstalledFile(const QString& name) {
  const QDir library(QFileInfo(OwnFile()).canonicalPath());
  return QDir::cleanPath(library.filePath(QStringLiteral(FOLVANE_DATA_FOLDER "/") + name));
}

}  // namespace folvane
