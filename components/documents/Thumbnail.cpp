#include "components/documents/Thumbnail.h"

#include <QBuffer>
#include <QImageReader>

namespace folvane::documents {

QImage Thumbnail(const QString& type, const QByteArray& content, QSize atMost) {
  QBuffer file;
  file.setData(content);
  QImageReader reader(&file, type.mid(1).toLatin1());
  const QImage image = reader.read();
  return image.isNull() ? image : image.scaled(atMost, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace folvane::documents
