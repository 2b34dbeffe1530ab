#include "components/scanning/ScanDialog.h"

#include "components/scanning/FrmScan.h"

namespace folvane::scanning {

std::vector<ScannedFile> ScanDocuments(QWidget* parent, const QString& directory) {
  FrmScan window(parent, directory);
  window.exec();
  return window.Files();
}

}  // namespace folvane::scanning
