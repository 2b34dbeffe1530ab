#include "components/documents/DocumentViewer.h"

#include "components/documents/FrmViewer.h"

namespace folvane::documents {

void ShowDocuments(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first) {
  if (documents.empty()) return;
  FrmViewer(parent, title, documents, qBound(0, first, int(documents.size()) - 1)).exec();
}

}  // namespace folvane::documents
