#include "originals/NewFile.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "originals/OriginalPlaces.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString SystemError() { return QString::fromLocal8Bit(std::strerror(errno)); }

// Some network file systems know no such thing for a directory; they keep its entries by themselves.
void SyncDirectory(const QString& path) {
  const int directory = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory < 0) return;
  fsync(directory);
  close(directory);
}

// Never takes the place of a file, not even of one that came a moment ago; where the file system cannot promise that,
// of one that was there before.
bool RenameAside(const QByteArray& from, const QByteArray& to) {
  if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  struct stat there {};
  if (lstat(to.constData(), &there) == 0) {
    errno = EEXIST;
    return false;
  }
  return std::rename(from.constData(), to.constData()) == 0;
}

}  // namespace

NewFile::NewFile(const QString& directory, const QString& name)
    : directory_(directory), name_(name), file_(directory + u'/' + TemporaryName(name)) {
  if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
    FailOn(directory, u"无法写入：%1"_s.arg(file_.errorString()));
}

NewFile::~NewFile() {
  if (!name_.isEmpty()) file_.remove();
}

void NewFile::Keep() {
  const QString path = directory_ + u'/' + name_;
  if (fsync(file_.handle()) != 0) FailOn(path, u"无法写入：%1"_s.arg(SystemError()));
  if (!RenameAside(QFile::encodeName(file_.fileName()), QFile::encodeName(path)))
    FailOn(path, errno == EEXIST ? u"已存在同名文件。"_s : u"无法写入：%1"_s.arg(SystemError()));
  name_.clear();
  file_.close();
  SyncDirectory(directory_);
}

void MakeDirectory(const QString& parent, const QString& name) {
  const QString path = parent + u'/' + name;
  if (mkdir(QFile::encodeName(path).constData(), 0777) == 0) {
    SyncDirectory(parent);
  } else if (errno != EEXIST) {
    FailOn(path, u"无法建立目录：%1"_s.arg(SystemError()));
  }
}

}  // namespace folvane
