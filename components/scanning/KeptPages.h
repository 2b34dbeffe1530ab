#pragma once

#include <QImage>
#include <QList>
#include <QString>
#include <vector>

#include "components/common/BackgroundWork.h"
#include "components/scanning/ScanDialog.h"

namespace folvane::scanning {

/// A page that was scanned: a file without loss, and how it is turned.
struct ScannedPage {
  QString path;
  int quarters = 0;  ///< turned clockwise by so many right angles
};

/// Writes a page without loss, quickly rather than small. @throws DataError File
void StorePage(const QImage& page, const QString& path);
/// Reads a page, turned. @throws DataError File
QImage ReadPage(const ScannedPage& page);

/// What the pages are kept as.
enum class KeepAs { Pdf, Jpeg, Png };

/// Makes files of the pages: one PDF file, in which a page is as large as the sheet was, or an image for each page,
/// numbered where there are several. Bitonal pages keep their one bit, except as JPEG; the others go into a PDF file
/// as JPEG.
/// @param goOn told before each page
/// @return the files, none when the work was ended
/// @throws DataError File; no file is left then
std::vector<ScannedFile> KeepPages(const QList<ScannedPage>& pages, KeepAs as, const QString& name,
                                   const QString& directory, const GoOn& goOn);

}  // namespace folvane::scanning
