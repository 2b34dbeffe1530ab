#include "components/scanning/ScanDialog.h"

#include <QDialog>

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;
}

std::vector<ScannedFile> ScanDocuments(QWidget* parent, const QString&) {
  QDialog window(parent);
  window.setObjectName(u"frmScan"_s);
  window.exec();
  return {};
}

}  // namespace folvane::scanning
