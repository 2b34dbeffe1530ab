#pragma once

#include <QByteArray>

#include "components/documents/PageSource.h"

namespace folvane::documents {

/// The largest image that is decoded, in bytes: an A3 sheet in colour at 600 dots per inch has 266 MiB. One decoded
/// image is held at a time.
constexpr qint64 kMostImageBytes = qint64(320) << 20;

/// An image file; each image of a TIFF file is a page, of an animation the first.
class ImagePages : public PageSource {
 public:
  /// @param format as QImageReader names it
  ImagePages(const QString& path, const QByteArray& format);
  int PageCount() const override { return count_; }
  QSizeF SizeOf(int page) override;
  QImage Render(int page, double scale) override;

 private:
  const QImage& Decoded(int page);

  QString path_;
  QByteArray format_;
  int count_ = 1;
  int decodedPage_ = -1;
  QImage decoded_;
};

}  // namespace folvane::documents
