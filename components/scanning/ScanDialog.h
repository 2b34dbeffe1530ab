#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace folvane::scanning {

/// A document that was scanned, as a finished file.
struct ScannedFile {
  QString name;  ///< as the user named it, without the type
  QString type;  ///< ".pdf", ".png" or ".jpg"
  QString path;  ///< of the file in the directory given
};

/// Lets the user scan pages in a window, and returns when it is closed: the files that were kept, none when cancelled.
/// @param directory a directory of the caller's for the files, existing and empty; the caller removes it
std::vector<ScannedFile> ScanDocuments(QWidget* parent, const QString& directory);

}  // namespace folvane::scanning
