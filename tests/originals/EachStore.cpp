#include "originals/EachStore.h"

#include <QDir>
#include <QDirIterator>

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

void EachStore::SetUp() {
  request_.databaseKind = OnServer() ? u"SQL SERVER"_s : u"OTHER"_s;
  server->Reset();
  if (OnServer()) {
    request_.ftp = std::make_shared<FtpConnection>(server->Login());
    server->TakeCommands();
  } else {
    QDir(directory_.path()).mkdir(u"store"_s);
    request_.storeRoot = directory_.filePath(u"store"_s).replace(u'/', u'\\');
  }
  store_ = OpenOriginalFiles(request_);
}

void EachStore::Put(const OriginalPlace& place, const QByteArray& content) {
  QBuffer source;
  source.setData(content);
  source.open(QIODevice::ReadOnly);
  Store().Put(place, source);
}

QByteArray EachStore::Get(const OriginalPlace& place) {
  QBuffer target;
  target.open(QIODevice::WriteOnly);
  Store().Get(place, target);
  return target.data();
}

QString EachStore::Path(const QString& file) const {
  return OnServer() ? server->Path(file) : directory_.filePath(u"store/"_s + file);
}

QStringList EachStore::Files() const {
  QStringList files;
  QDirIterator each(Path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
  while (each.hasNext()) files << QDir(Path()).relativeFilePath(each.next());
  files.sort();
  return files;
}

QByteArray EachStore::Read(const QString& file) const {
  QFile stored(Path(file));
  if (!stored.open(QIODevice::ReadOnly)) ADD_FAILURE() << "the store has no file " << file.toStdString();
  return stored.readAll();
}

void EachStore::Write(const QString& file, const QByteArray& content) {
  QDir().mkpath(QFileInfo(Path(file)).absolutePath());
  QFile stored(Path(file));
  if (!stored.open(QIODevice::WriteOnly) || stored.write(content) != content.size())
    ADD_FAILURE() << "cannot write " << file.toStdString();
}

}  // namespace folvane::test
