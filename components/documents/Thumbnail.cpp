#include "components/documents/Thumbnail.h"

#include <QPainter>
#include <QTemporaryFile>

#include "components/documents/PageSource.h"
#include "components/documents/Zoom.h"

namespace folvane::documents {
namespace {

// White paper would not be told from a white list.
QImage Framed(const QImage& page) {
  QImage framed = page.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&framed);
  painter.setPen(Qt::gray);
  painter.drawRect(framed.rect().adjusted(0, 0, -1, -1));
  return framed;
}

}  // namespace

QImage Thumbnail(const QString& type, const QByteArray& content, QSize atMost) {
  QTemporaryFile file;
  if (!file.open() || file.write(content) != content.size() || !file.flush()) return {};
  try {
    const auto pages = OpenPages(file.fileName(), type);
    if (!pages) return {};
    const QImage page = pages->Render(0, ScaleOf({}, pages->SizeOf(0), atMost));
    return page.isNull() ? page : Framed(page.scaled(atMost, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  } catch (const DataError&) {
    return {};
  }
}

}  // namespace folvane::documents
