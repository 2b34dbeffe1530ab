#include "components/documents/PdfPages.h"

#include <QPainter>
#include <QPdfDocumentRenderOptions>

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void Refuse(const QString& why) { throw DataError(DataErrorKind::File, why); }

}  // namespace

PdfPages::PdfPages(const QString& path, const QString& password) {
  document_.setPassword(password);
  switch (document_.load(path)) {
    case QPdfDocument::Error::None:
      break;
    case QPdfDocument::Error::IncorrectPassword:
      throw PasswordNeeded(!password.isEmpty());
    case QPdfDocument::Error::UnsupportedSecurityScheme:
      Refuse(u"PDF 文件的加密方式不受支持，无法显示。"_s);
    default:
      Refuse(u"PDF 文件已损坏，无法显示。"_s);
  }
  if (document_.pageCount() < 1) Refuse(u"PDF 文件中没有页面。"_s);
}

QSizeF PdfPages::SizeOf(int page) {
  const QSizeF size = document_.pagePointSize(page);
  if (size.isEmpty()) Refuse(u"PDF 文件的第 %1 页已损坏，无法显示。"_s.arg(page + 1));
  return size;
}

QImage PdfPages::Render(int page, double scale) {
  QPdfDocumentRenderOptions options;
  options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
  const QImage drawn = document_.render(page, SizeInPixels(SizeOf(page), scale), options);
  if (drawn.isNull()) Refuse(u"PDF 文件的第 %1 页已损坏，无法显示。"_s.arg(page + 1));
  QImage paper(drawn.size(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, drawn);
  return paper;
}

}  // namespace folvane::documents
