#include "components/reports/ReportPages.h"

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QScreen>
#include <algorithm>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "components/common/WholeFile.h"
#include "components/reports/Pagination.h"
#include "components/reports/ReportDocument.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr double kFooterPoints = 18;
constexpr int kPdfResolution = 600;

// The first of the fonts in which offices print that the machine has.
QFont BodyFont() {
  static const QStringList wanted{u"SimSun"_s,
                                  u"NSimSun"_s,
                                  u"Noto Serif CJK SC"_s,
                                  u"Source Han Serif SC"_s,
                                  u"Noto Sans CJK SC"_s,
                                  u"WenQuanYi Micro Hei"_s};
  const QStringList present = QFontDatabase::families();
  QFont font;
  for (const QString& family : wanted) {
    if (!present.contains(family)) continue;
    font.setFamily(family);
    break;
  }
  font.setPointSizeF(10.5);
  return font;
}

double PixelsOf(double points, const QPaintDevice& device) { return points * device.logicalDpiY() / 72; }

// What the layout makes of a border of 1.
double BorderPixel(const QPaintDevice& device) {
  return device.logicalDpiY() / QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

void PaintFooter(QPainter& painter, const QSizeF& body, double height, int page, int pages) {
  QFont font = BodyFont();
  font.setPointSizeF(9);
  painter.setFont(font);
  painter.drawText(QRectF(0, body.height(), body.width(), height), Qt::AlignHCenter | Qt::AlignBottom,
                   u"第 %1 页  共 %2 页"_s.arg(page).arg(pages));
}

// One piece of the document, with what stands at its top moved to a height of the page.
void PaintPiece(QPainter& painter, const QTextDocument& document, double top, double bottom, double at) {
  // The line that closes a table's last row on a page belongs to the row behind it.
  const double line = BorderPixel(*painter.device());
  painter.save();
  painter.translate(0, at - top);
  const QRectF view(-line, top, document.textWidth() + 2 * line, bottom - top + line);
  painter.setClipRect(view);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = view;
  context.palette.setColor(QPalette::Text, Qt::black);
  document.documentLayout()->draw(&painter, context);
  painter.restore();
}

void PaintPage(QPainter& painter, const QTextDocument& document, const PageSlice& page) {
  const double head = page.headBottom - page.headTop;
  if (head > 0) PaintPiece(painter, document, page.headTop, page.headBottom, 0);
  PaintPiece(painter, document, page.top, page.bottom, head);
}

}  // namespace

void ReportPages::Paint(QPagedPaintDevice& device, int from, int to) const {
  QPainter painter;
  if (!painter.begin(&device)) throw DataError(DataErrorKind::File, u"无法开始打印。"_s);
  const double footer = PixelsOf(kFooterPoints, device);
  const QSizeF body(device.width(), device.height() - footer);
  if (body.isEmpty()) throw DataError(DataErrorKind::Usage, u"页边距太大，纸上放不下内容。"_s);
  ReportDocument document(Services().programDirectory + u"/Reports"_s);
  document.setDocumentMargin(0);
  document.setDefaultFont(BodyFont());
  document.documentLayout()->setPaintDevice(&device);
  document.setHtml(html_);
  document.setTextWidth(body.width());
  const std::vector<PageSlice> pages = CutIntoPages(document, body.height(), BorderPixel(device));
  const int count = int(pages.size());
  const int last = to > 0 ? std::min(to, count) : count;
  for (int page = std::max(from, 1); page <= last; ++page) {
    PaintPage(painter, document, pages[size_t(page) - 1]);
    if (count > 1) PaintFooter(painter, body, footer, page, count);
    if (page < last) device.newPage();
  }
}

void ReportPages::Print(QPrinter& printer) const {
  printer.setPageLayout(layout_);
  Paint(printer, printer.fromPage(), printer.toPage());
}

void ReportPages::WritePdf(const QString& path, const QString& title) const {
  QSaveFile file(path);
  if (!file.open(QFile::WriteOnly))
    throw DataError(DataErrorKind::File,
                    u"文件 %1 无法保存：%2"_s.arg(QDir::toNativeSeparators(path), file.errorString()));
  {
    QPdfWriter writer(&file);
    writer.setResolution(kPdfResolution);
    writer.setTitle(title);
    writer.setPageLayout(layout_);
    Paint(writer, 0, 0);
  }
  if (!components::CommitWhole(file))
    throw DataError(DataErrorKind::File,
                    u"文件 %1 无法保存：%2"_s.arg(QDir::toNativeSeparators(path), file.errorString()));
}

}  // namespace folvane::reports
