#include "originals/DirectoryOriginals.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <folvane/DataError.h>

#include "base/Surroundings.h"
#include "originals/NewFile.h"
#include "originals/OriginalPlaces.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qint64 kChunk = 256 * 1024;  // bytes

void CopyContent(QIODevice& from, QIODevice& to, const QString& shown, const TransferProgress& progress) {
  const qint64 total = from.isSequential() ? -1 : from.size() - from.pos();
  QByteArray chunk(kChunk, Qt::Uninitialized);
  for (qint64 done = 0;;) {
    if (progress && !progress(done, total)) FailCancelled();
    const qint64 count = from.read(chunk.data(), chunk.size());
    if (count < 0) FailOn(shown, u"无法读取：%1"_s.arg(from.errorString()));
    if (count == 0) return;
    if (to.write(chunk.constData(), count) != count) FailOn(shown, u"无法写入：%1"_s.arg(to.errorString()));
    done += count;
  }
}

class DirectoryStore final : public OriginalFiles {
 public:
  explicit DirectoryStore(const QString& root) : shownRoot_(root), root_(QString(root).replace(u'\\', u'/')) { Root(); }

  QString PathOfToday() const override { return QString::number(Today().year()); }

  void Put(const OriginalPlace& place, QIODevice& content, const TransferProgress& progress) override {
    const CheckedPlace checked = Checked(place);
    const QString directory = DirectoryOf(checked, true);
    const QString path = directory + u'/' + checked.name;
    if (QFileInfo::exists(path)) FailOn(path, u"已存在同名文件。"_s);
    NewFile file(directory, checked.name);
    CopyContent(content, file.Device(), path, progress);
    file.Keep();
  }

  void Get(const OriginalPlace& place, QIODevice& target, const TransferProgress& progress) override {
    const QString path = FileOf(Checked(place));
    QFile file(path);
    if (!QFileInfo(path).isFile()) FailOn(path, u"文件不存在。"_s);
    if (!file.open(QIODevice::ReadOnly)) FailOn(path, u"无法读取：%1"_s.arg(file.errorString()));
    CopyContent(file, target, path, progress);
  }

  void Remove(const OriginalPlace& place) override {
    const QString path = FileOf(Checked(place));
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) return;
    QFile file(path);
    if (!file.remove()) FailOn(path, u"无法删除：%1"_s.arg(file.errorString()));
  }

  bool Has(const OriginalPlace& place) override { return QFileInfo(FileOf(Checked(place))).isFile(); }

  std::vector<StoredFile> List(const TransferProgress& progress) override {
    const QString root = Root();
    std::vector<StoredFile> files;
    QDirIterator each(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
      each.next();
      const QFileInfo info = each.fileInfo();
      if (info.isDir() && !info.isSymLink() && !info.isReadable()) FailOn(info.filePath(), u"无法读取此目录。"_s);
      if (!info.isFile() || (info.isSymLink() && !IsWithin(info.canonicalFilePath()))) continue;
      const QString below = info.path().mid(root.size());
      files.push_back({PathParts(below).join(u'/'), info.fileName(), info.size()});
      if (progress && !progress(qint64(files.size()), -1)) FailCancelled();
    }
    return files;
  }

 private:
  /// The root without links in its path. @throws DataError File where it cannot be reached
  QString Root() const {
    if (root_.isEmpty()) FailOnRoot(u"没有设置"_s);
    const QFileInfo info(root_);
    if (!info.exists()) FailOnRoot(u"不存在或无法访问"_s);
    if (!info.isDir()) FailOnRoot(u"不是目录"_s);
    return info.canonicalFilePath();
  }

  [[noreturn]] void FailOnRoot(const QString& reason) const {
    throw DataError(
        DataErrorKind::File,
        u"存储原文的目录“%1”%2，请检查 Report_Info 中的设置以及网络共享是否已连接。"_s.arg(shownRoot_, reason));
  }

  bool IsWithin(const QString& canonical) const {
    const QString root = Root();
    return canonical == root || canonical.startsWith(root.endsWith(u'/') ? root : root + u'/');
  }

  void RequireWithin(const QString& path, const QString& canonical) const {
    if (!IsWithin(canonical)) FailOn(path, u"是通向存储目录之外的链接，不予处理。"_s);
  }

  /// The directory of a place, level by level, so that none is made behind a link to elsewhere.
  QString DirectoryOf(const CheckedPlace& place, bool make) const {
    QString directory = Root();
    for (const QString& part : place.directories) {
      const QString next = directory + u'/' + part;
      if (make && !QFileInfo::exists(next)) MakeDirectory(directory, part);
      const QString canonical = QFileInfo(next).canonicalFilePath();
      if (canonical.isEmpty() && make) FailOn(next, u"目录无法访问。"_s);
      if (canonical.isEmpty()) return Root() + u'/' + place.directories.join(u'/');  // nothing is found there
      RequireWithin(next, canonical);
      directory = canonical;
    }
    return directory;
  }

  QString FileOf(const CheckedPlace& place) const {
    const QString path = ExistingPath(DirectoryOf(place, false) + u'/' + place.name);
    const QFileInfo info(path);
    if (info.isSymLink()) RequireWithin(path, info.canonicalFilePath());
    return path;
  }

  QString shownRoot_, root_;
};

}  // namespace

std::unique_ptr<OriginalFiles> DirectoryOriginals(const QString& root) {
  return std::make_unique<DirectoryStore>(root);
}

}  // namespace folvane
