#include "components/documents/ImagePages.h"

#include <QImageReader>

#include "components/common/ImageLimit.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr double kPointsOfInch = 72, kInchesOfMetre = 39.37007874;
// Resolutions outside say nothing about the paper.
constexpr double kLeastDpi = 50, kMostDpi = 4800, kScreenDpi = 96;

[[noreturn]] void ThrowDamaged() { throw DataError(DataErrorKind::File, u"图像已损坏或不完整，无法显示。"_s); }

void RequireDecodable(const QImageReader& reader) {
  const QSize size = reader.size();
  if (!size.isValid() || size.isEmpty()) ThrowDamaged();
  const int bits = qMax(32, int(QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel()));
  const bool fits = double(size.width()) * size.height() * bits / 8 <= double(kMostImageBytes);
  if (fits && qMax(size.width(), size.height()) <= kLongestSide) return;
  throw DataError(DataErrorKind::File, u"图像过大（%1 × %2 像素），无法显示。"_s.arg(size.width()).arg(size.height()));
}

double DpiOf(int dotsPerMetre) {
  const double dpi = dotsPerMetre / kInchesOfMetre;
  return dpi >= kLeastDpi && dpi <= kMostDpi ? dpi : kScreenDpi;
}

}  // namespace

ImagePages::ImagePages(const QString& path, const QByteArray& format) : path_(path), format_(format) {
  // That limit is one for the process; what is decoded here is measured before.
  AllowImagesOf(kMostImageBytes);
  QImageReader reader(path_, format_);
  if (!reader.canRead()) ThrowDamaged();
  if (format_ == "tiff") count_ = qMax(reader.imageCount(), 1);
}

const QImage& ImagePages::Decoded(int page) {
  if (page == decodedPage_) return decoded_;
  decoded_ = {};
  decodedPage_ = -1;
  QImageReader reader(path_, format_);
  reader.setAutoTransform(true);
  if (page > 0 && !reader.jumpToImage(page)) ThrowDamaged();
  RequireDecodable(reader);
  decoded_ = reader.read();
  if (decoded_.isNull()) ThrowDamaged();
  decodedPage_ = page;
  return decoded_;
}

QSizeF ImagePages::SizeOf(int page) {
  const QImage& image = Decoded(page);
  return {image.width() / DpiOf(image.dotsPerMeterX()) * kPointsOfInch,
          image.height() / DpiOf(image.dotsPerMeterY()) * kPointsOfInch};
}

QImage ImagePages::Render(int page, double scale) {
  const QImage& image = Decoded(page);
  const QSize size = SizeInPixels(SizeOf(page), scale);
  // Larger than it is it would only take memory: whoever draws it can stretch it as well.
  if (size.width() >= image.width() && image.width() * double(image.height()) <= kMostPixels) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace folvane::documents
