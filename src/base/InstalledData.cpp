#include "base/InstalledData.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <dlfcn.h>

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

QString InstalledFile(const QString& name) {
  const QDir library(QFileInfo(OwnFile()).canonicalPath());
  return QDir::cleanPath(library.filePath(QStringLiteral(FOLVANE_DATA_FOLDER "/") + name));
}

}  // namespace folvane
