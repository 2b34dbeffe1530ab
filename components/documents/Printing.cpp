#include "components/documents/Printing.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTransform>

#include "components/common/BackgroundWork.h"
#include "components/documents/PageSource.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr double kPrintedScale = 300.0 / 72;

QRectF OnSheet(const QPagedPaintDevice& device, QSizeF size) {
  const QPageLayout layout = device.pageLayout();
  const QSizeF room = layout.paintRect(QPageLayout::Point).size();
  if (size.width() > room.width() || size.height() > room.height()) size.scale(room, Qt::KeepAspectRatio);
  return {QPointF((room.width() - size.width()) / 2, (room.height() - size.height()) / 2), size};
}

// The sheet lies as the page does.
void TurnSheet(QPagedPaintDevice& device, const QSizeF& page) {
  device.setPageOrientation(page.width() > page.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
}

}  // namespace

void PaintPages(PageSource& source, QPagedPaintDevice& device, const PrintedPages& pages, const GoOn& goOn) {
  QPainter painter;
  for (int page = pages.from; page <= pages.to; ++page) {
    if (!goOn(page - pages.from)) return;
    QSizeF size = source.SizeOf(page);
    if (pages.quarters % 2 != 0) size.transpose();
    TurnSheet(device, size);
    if (page == pages.from && !painter.begin(&device))
      throw DataError(DataErrorKind::File, u"打印机没有响应，无法打印。"_s);
    if (page > pages.from) device.newPage();
    QImage image = source.Render(page, kPrintedScale);
    if (pages.quarters != 0) image = image.transformed(QTransform().rotate(90.0 * pages.quarters));
    const double dots = painter.device()->logicalDpiX() / 72.0;
    const QRectF place = OnSheet(device, size);
    painter.drawImage(QRectF(place.topLeft() * dots, place.size() * dots), image);
  }
}

void PrintFile(QWidget* parent, const QString& name, const QString& path, const QString& type, const QString& password,
               int pageCount, int quarters) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(name);
  QPrintDialog dialog(&printer, parent);
  dialog.setOptions(QPrintDialog::PrintPageRange | QPrintDialog::PrintToFile);
  dialog.setMinMax(1, pageCount);
  if (dialog.exec() != QDialog::Accepted) return;
  PrintedPages pages{0, pageCount - 1, quarters};
  if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0)
    pages = {printer.fromPage() - 1, qMin(printer.toPage(), pageCount) - 1, quarters};

  RunInBackground(parent, u"正在打印…"_s, pages.to - pages.from + 1,
                  [&](const GoOn& goOn) { PaintPages(*OpenPages(path, type, password), printer, pages, goOn); });
}

}  // namespace folvane::documents
