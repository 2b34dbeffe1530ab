#include "components/documents/DocumentViewer.h"

#include "components/documents/FrmViewer.h"

namespace folvane::documents {

void ShowDocuments(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first) {
  FrmViewer(parent, title, documents, first).exec();
}

}  // namespace folvane::documents
