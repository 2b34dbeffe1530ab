#include "components/originals/OfferedFiles.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

namespace folvane::originals {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kChoose = u"选择要添加的原文"_s;

// Under a name of its own, however many images are pasted within a second.
FileToAdd WriteImage(const QImage& image, const QString& directory) {
  const QDir folder(directory);
  const QString path = folder.filePath(u"%1.png"_s.arg(folder.count()));
  if (!image.save(path, "PNG")) throw DataError(DataErrorKind::File, u"图像无法写入 %1。"_s.arg(path));
  return {u"图像"_s + Services().now().toString(u"yyyyMMdd-HHmmss"_s), u".png"_s, path};
}

}  // namespace

QStringList OfferedTypes() { return {u"text/uri-list"_s, u"application/x-qt-image"_s, u"image/png"_s}; }

std::vector<FileToAdd> FilesIn(const QMimeData& data, const QString& directory) {
  std::vector<FileToAdd> files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) files.push_back(FileToAdd::At(url.toLocalFile()));
  if (files.empty() && data.hasImage()) {
    const auto image = data.imageData().value<QImage>();
    if (image.isNull()) throw DataError(DataErrorKind::File, u"剪贴板中的图像已损坏。"_s);
    files.push_back(WriteImage(image, directory));
  }
  return files;
}

std::vector<FileToAdd> FilesInClipboard(const QString& directory) {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data ? FilesIn(*data, directory) : std::vector<FileToAdd>();
}

std::vector<FileToAdd> ChooseFiles(QWidget* parent) {
  QStringList paths;
  if (Services().fileDialog) {
    paths << Services().fileDialog({false, kChoose, {}, u"所有文件|*"_s});
  } else {
    paths = QFileDialog::getOpenFileNames(parent, kChoose);
  }
  std::vector<FileToAdd> files;
  for (const QString& path : paths)
    if (!path.isEmpty()) files.push_back(FileToAdd::At(path));
  return files;
}

}  // namespace folvane::originals
