#include "base/FileUpdate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kLockWait = 5000;  // milliseconds; an update takes a few

FileError Unreadable(const QFileDevice& file) {
  return FileError(u"文件 %1 无法读取：%2"_s.arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

FileError Unwritable(const QString& path, const QString& reason) {
  return FileError(u"文件 %1 无法写入：%2"_s.arg(QDir::toNativeSeparators(path), reason));
}

// What the disk has taken only in part counts as written to the file that it is made on.
class WholeFile : public QSaveFile {
 public:
  using QSaveFile::QSaveFile;
  /// Whether the disk has all that was written.
  bool IsWhole() { return !isCut_ && flush() && size() >= pos(); }

 protected:
  qint64 writeData(const char* data, qint64 length) override {
    const qint64 written = QSaveFile::writeData(data, length);
    isCut_ = isCut_ || written != length;
    return written;
  }

 private:
  bool isCut_ = false;
};

}  // namespace

QByteArray ReadFile(const QString& path) {
  QFile file(path);
  if (!file.exists()) return {};
  if (!file.open(QIODevice::ReadOnly)) throw Unreadable(file);
  const QByteArray content = file.readAll();
  if (file.error() != QFileDevice::NoError) throw Unreadable(file);
  return content;
}

void ReplaceFile(const QString& path, const std::function<void(QIODevice&)>& write) {
  WholeFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw Unwritable(path, file.errorString());
  write(file);
  if (!file.IsWhole()) throw Unwritable(path, u"磁盘空间不足。"_s);
  if (!file.commit()) throw Unwritable(path, file.errorString());
}

void UpdateFile(const QString& path, const std::function<QByteArray(const QByteArray&)>& change) {
  QDir().mkpath(QFileInfo(path).absolutePath());  // a failure shows at the lock
  QLockFile lock(path + u".lock"_s);
  if (!lock.tryLock(kLockWait)) throw Unwritable(path, u"文件被占用，或所在目录不可写。"_s);
  const QByteArray before = ReadFile(path);
  const QByteArray after = change(before);
  if (after != before || !QFile::exists(path)) ReplaceFile(path, [&](QIODevice& file) { file.write(after); });
}

}  // namespace folvane
