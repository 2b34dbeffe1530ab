#include "data/persist/TablegramFile.h"

#include <QDir>
#include <QFileInfo>

#include "base/FileUpdate.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QByteArray ReadTablegramFile(const QString& path) {
  const QFileInfo file(path);
  const QString name = QDir::toNativeSeparators(path);
  if (!file.exists()) throw FileError(u"文件 %1 不存在。"_s.arg(name));
  if (!file.isFile()) throw FileError(u"%1 不是文件，不能作为记录集打开。"_s.arg(name));
  QByteArray content = ReadFile(path);
  if (content.isEmpty()) throw FileError(u"文件 %1 是空的。"_s.arg(name));
  return content;
}

}  // namespace folvane
