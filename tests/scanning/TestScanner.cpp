#include "scanning/TestScanner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

void WriteConfiguration(const QString& path, const QByteArray& text) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0) qFatal("cannot configure SANE");
}

}  // namespace

QString TestScanner() {
  static const QTemporaryDir folder;
  static const bool made = [] {
    WriteConfiguration(folder.filePath(u"dll.conf"_s), "test\n");
    WriteConfiguration(folder.filePath(u"test.conf"_s),
                       "number_of_devices 1\nmode Gray\ndepth 8\nresolution_min 1\nresolution_max 1200\n"
                       "resolution_quant 1\nresolution 50\ntest-picture \"Solid black\"\n");
    return qputenv("SANE_CONFIG_DIR", QFile::encodeName(folder.path()));
  }();
  return made ? u"test:0"_s : QString();
}

}  // namespace folvane::test
