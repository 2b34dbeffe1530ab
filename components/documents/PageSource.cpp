#include "components/documents/PageSource.h"

#include <QFile>
#include <QImageReader>
#include <cmath>

#include "components/documents/ImagePages.h"
#include "components/documents/PdfPages.h"
#include "components/documents/TextPages.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

// Where readers of PDF look for its mark.
constexpr qint64 kHead = 1024;

const QStringList kTextTypes{u".txt"_s, u".log"_s, u".csv"_s, u".md"_s, u".ini"_s, u".xml"_s, u".json"_s};
const QStringList kPageTypes{u".pdf"_s,  u".png"_s, u".jpg"_s, u".jpeg"_s, u".tif"_s,
                             u".tiff"_s, u".bmp"_s, u".gif"_s, u".webp"_s};

// The format that the bytes are of, of those that are recognised without doubt.
QByteArray ImageFormat(QFile& file) {
  file.seek(0);
  const QByteArray format = QImageReader::imageFormat(&file);
  static const QByteArrayList known{"png", "jpeg", "tiff", "bmp", "gif", "webp"};
  return known.contains(format) ? format : QByteArray();
}

}  // namespace

PasswordNeeded::PasswordNeeded(bool wrong)
    : DataError(DataErrorKind::File, wrong ? u"密码不正确。"_s : u"文件已加密，需要密码。"_s), wrong_(wrong) {}

std::unique_ptr<PageSource> OpenPages(const QString& path, const QString& type, const QString& password) {
  const QString ending = type.trimmed().toLower();
  if (kTextTypes.contains(ending)) return std::make_unique<TextPages>(path);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw DataError(DataErrorKind::File, u"无法读取文件：%1"_s.arg(file.errorString()));
  if (file.read(kHead).contains("%PDF-")) return std::make_unique<PdfPages>(path, password);
  const QByteArray format = ImageFormat(file);
  if (!format.isEmpty()) return std::make_unique<ImagePages>(path, format);
  if (!kPageTypes.contains(ending)) return nullptr;
  throw DataError(DataErrorKind::File, u"文件已损坏，或者不是 %1 格式，无法显示。"_s.arg(ending.mid(1).toUpper()));
}

QSize SizeInPixels(const QSizeF& points, double scale) {
  const double pixels = points.width() * scale * points.height() * scale;
  if (pixels > kMostPixels) scale *= std::sqrt(kMostPixels / pixels);
  const auto side = [scale](double length) {
    return qRound(std::fmin(std::fmax(length * scale, 1), kLongestSide));  // 1 for what is no number
  };
  return {side(points.width()), side(points.height())};
}

}  // namespace folvane::documents
