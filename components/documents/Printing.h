#pragma once

#include <QString>

#include "components/common/BackgroundWork.h"

class QPagedPaintDevice;
class QPrinter;
class QWidget;

namespace folvane::documents {

class PageSource;

/// Which pages of a file are printed, from 0 to the last included, and how they are turned.
struct PrintedPages {
  int from = 0, to = 0;
  int quarters = 0;
};

/// Paints pages, each as large as its sheet allows but not larger than it is.
/// @param goOn told before each page
void PaintPages(PageSource& source, QPagedPaintDevice& device, const PrintedPages& pages, const GoOn& goOn);

/// Asks for the printer and prints the file in the background, with a window that shows how far it has come.
/// @param name of the job; where it is printed into a file, of that as well
void PrintFile(QWidget* parent, const QString& name, const QString& path, const QString& type, const QString& password,
               int pageCount, int quarters);

}  // namespace folvane::documents
