#include "components/documents/DocumentViewer.h"

#include <QDialog>

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;
}

void ShowDocuments(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first) {
  QDialog window(parent);
  window.setObjectName(u"frmViewer"_s);
  window.setWindowTitle(documents.at(first).name + u" - "_s + title);
  window.exec();
}

}  // namespace folvane::documents
