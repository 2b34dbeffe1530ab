#pragma once

#include <QPdfDocument>

#include "components/documents/PageSource.h"

namespace folvane::documents {

/// A PDF file.
class PdfPages : public PageSource {
 public:
  PdfPages(const QString& path, const QString& password);
  int PageCount() const override { return document_.pageCount(); }
  QSizeF SizeOf(int page) override;
  QImage Render(int page, double scale) override;

 private:
  QPdfDocument document_;
};

}  // namespace folvane::documents
