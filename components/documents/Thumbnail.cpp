#include "components/documents/Thumbnail.h"

#include <QTemporaryFile>

#include "components/documents/PageSource.h"
#include "components/documents/Zoom.h"

namespace folvane::documents {

QImage Thumbnail(const QString& type, const QByteArray& content, QSize atMost) {
  QTemporaryFile file;
  if (!file.open() || file.write(content) != content.size() || !file.flush()) return {};
  try {
    const auto pages = OpenPages(file.fileName(), type);
    if (!pages) return {};
    const QImage page = pages->Render(0, ScaleOf({}, pages->SizeOf(0), atMost));
    return page.scaled(atMost, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  } catch (const DataError&) {
    return {};
  }
}

}  // namespace folvane::documents
