#pragma once

#include <QPageLayout>
#include <QString>

class QPagedPaintDevice;
class QPrinter;

namespace folvane::reports {

/// A filled report as pages of a layout. A table's head is repeated on each page; where there are several pages each
/// says its number below. Pictures come from the folder of the templates alone.
class ReportPages {
 public:
  ReportPages(QString html, const QPageLayout& layout) : html_(std::move(html)), layout_(layout) {}

  const QPageLayout& Layout() const { return layout_; }
  void SetLayout(const QPageLayout& layout) { layout_ = layout; }

  /// Paints the pages that the printer is to print.
  void Print(QPrinter& printer) const;
  /// Writes all pages as a PDF file that contains its fonts. @throws DataError File
  void WritePdf(const QString& path, const QString& title) const;

 private:
  void Paint(QPagedPaintDevice& device, int from, int to) const;

  QString html_;
  QPageLayout layout_;
};

}  // namespace folvane::reports
