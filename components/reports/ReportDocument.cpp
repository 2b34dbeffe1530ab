#include "components/reports/ReportDocument.h"

#include <QFileInfo>
#include <QUrl>

namespace folvane::reports {

ReportDocument::ReportDocument(const QString& folder) : folder_(QFileInfo(folder).canonicalFilePath()) {
  setBaseUrl(QUrl::fromLocalFile(folder + u'/'));
}

QVariant ReportDocument::loadResource(int type, const QUrl& name) {
  const QUrl address = baseUrl().resolved(name);
  const QString file = address.isLocalFile() ? QFileInfo(address.toLocalFile()).canonicalFilePath() : QString();
  const bool isInside = !folder_.isEmpty() && file.startsWith(folder_ + u'/');
  return isInside ? QTextDocument::loadResource(type, name) : QVariant();
}

}  // namespace folvane::reports
