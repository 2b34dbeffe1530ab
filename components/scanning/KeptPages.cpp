#include "components/scanning/KeptPages.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QTransform>

#include <folvane/DataError.h>

#include "components/common/ImageLimit.h"
#include "components/scanning/PageReader.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

// Colours of three bytes are decoded into four.
constexpr qint64 kMostDecodedBytes = kMostPageBytes / 3 * 4;
constexpr int kJpegQuality = 85;
// Of PNG the quality says how little to compress.
constexpr int kQuickPng = 80;

[[noreturn]] void ThrowUnwritten(const QString& path, const QString& why) {
  throw DataError(DataErrorKind::File, u"无法写入 %1：%2"_s.arg(QDir::toNativeSeparators(path), why));
}

QSizeF SheetOf(const QImage& page) {
  return {page.width() * 1000.0 / page.dotsPerMeterX(), page.height() * 1000.0 / page.dotsPerMeterY()};
}

void SetSheet(QPdfWriter& writer, const QSizeF& millimetres) {
  writer.setPageSize(QPageSize(millimetres, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
}

// The writer keeps the one bit of an image whose colours are black and white, in that order, and makes a JPEG of any
// other.
QImage InBlackAndWhite(QImage page) {
  if (page.format() != QImage::Format_Mono) return page;
  if (qGray(page.color(0)) > qGray(page.color(1))) page.invertPixels();
  page.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
  return page;
}

bool WritePdf(const QList<ScannedPage>& pages, const QString& path, const QString& title, const GoOn& goOn) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) ThrowUnwritten(path, file.errorString());
  QPdfWriter writer(&file);
  writer.setTitle(title);
  QPainter painter;
  for (int i = 0; i < pages.size(); ++i) {
    if (!goOn(i)) return false;
    const QImage page = ReadPage(pages[i]);
    SetSheet(writer, SheetOf(page));
    if (i == 0 ? !painter.begin(&writer) : !writer.newPage()) ThrowUnwritten(path, file.errorString());
    painter.drawImage(QRectF(0, 0, writer.width(), writer.height()), InBlackAndWhite(page));
  }
  if (!painter.end() || !file.flush() || file.error() != QFile::NoError) ThrowUnwritten(path, file.errorString());
  return true;
}

void WriteImage(const ScannedPage& page, KeepAs as, const QString& path) {
  QImageWriter writer(path, as == KeepAs::Png ? "png" : "jpeg");
  if (as == KeepAs::Jpeg) writer.setQuality(kJpegQuality);
  if (!writer.write(ReadPage(page))) ThrowUnwritten(path, writer.errorString());
}

/// Removes what was written unless all of it was.
class Written {
 public:
  ~Written() {
    if (!isWhole)
      for (const ScannedFile& file : files) QFile::remove(file.path);
  }
  std::vector<ScannedFile> files;
  bool isWhole = false;
};

}  // namespace

void StorePage(const QImage& page, const QString& path) {
  QImageWriter writer(path, "png");
  writer.setQuality(kQuickPng);
  if (!writer.write(page)) ThrowUnwritten(path, writer.errorString());
}

QImage ReadPage(const ScannedPage& page) {
  AllowImagesOf(kMostDecodedBytes);
  QImageReader reader(page.path);
  const QImage image = reader.read();
  if (image.isNull()) throw DataError(DataErrorKind::File, u"无法读取扫描的页面：%1"_s.arg(reader.errorString()));
  if (page.quarters % 4 == 0) return image;
  // A page of one bit stays one; its resolutions change places with its sides.
  QImage turned = image.transformed(QTransform().rotate(90.0 * page.quarters)).convertToFormat(image.format());
  const bool lies = page.quarters % 2 != 0;
  turned.setDotsPerMeterX(lies ? image.dotsPerMeterY() : image.dotsPerMeterX());
  turned.setDotsPerMeterY(lies ? image.dotsPerMeterX() : image.dotsPerMeterY());
  return turned;
}

std::vector<ScannedFile> KeepPages(const QList<ScannedPage>& pages, KeepAs as, const QString& name,
                                   const QString& directory, const GoOn& goOn) {
  const QDir folder(directory);
  const QString type = as == KeepAs::Pdf ? u".pdf"_s : as == KeepAs::Jpeg ? u".jpg"_s : u".png"_s;
  Written written;
  const auto add = [&](const QString& title) {
    written.files.push_back({title, type, folder.filePath(QString::number(written.files.size() + 1) + type)});
    return written.files.back().path;
  };
  if (as == KeepAs::Pdf) {
    if (!WritePdf(pages, add(name), name, goOn)) return {};
  } else {
    for (int i = 0; i < pages.size(); ++i) {
      if (!goOn(i)) return {};
      WriteImage(pages[i], as, add(pages.size() == 1 ? name : u"%1-%2"_s.arg(name).arg(i + 1)));
    }
  }
  written.isWhole = true;
  return written.files;
}

}  // namespace folvane::scanning
