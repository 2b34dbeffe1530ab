// Files of 100 KiB, as many as the table has rows, put into a store of originals and read from it.
#include <QBuffer>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <curl/curl.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <folvane/OriginalFiles.h>
#include <folvane/OriginalsRequest.h>

#include "bench/Cases.h"

namespace folvane::bench {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kFileSize = 100 * 1024;
constexpr long kBuffer = 256 * 1024;  // bytes, of both sides

const QByteArray& Content() {
  static const QByteArray content(kFileSize, 'x');
  return content;
}

void Require(bool holds, const char* what) {
  if (!holds) qFatal("%s failed", what);
}

/// A server on the loopback, with an empty directory "files" as its top.
class Server {
 public:
  Server() {
    process_.start(u"/usr/bin/python3"_s, {QString::fromUtf8(BENCH_FTP_SERVER), folder_.path()});
    Require(process_.waitForReadyRead(20'000), "starting the FTP server");
    port_ = process_.readAllStandardOutput().trimmed().toUShort();
  }
  ~Server() {
    process_.closeWriteChannel();
    process_.waitForFinished();
  }
  FtpLogin Login() const { return {u"127.0.0.1"_s, port_, u"plain"_s, u"p:w@/%41"_s}; }
  QString Top() const { return folder_.filePath(u"files"_s); }

 private:
  QTemporaryDir folder_;
  QProcess process_;
  quint16 port_ = 0;
};

OriginalPlace PlaceOf(qint64 number) { return {u"2026"_s, QString::number(number), u".tif"_s}; }

QByteArray NameOf(qint64 number) { return "2026/" + QByteArray::number(number) + ".tif"; }

void MakeFiles(const QString& top, qint64 count) {
  QDir(top).mkpath(u"2026"_s);
  for (qint64 number = 0; number < count; ++number) {
    QFile file(top + u'/' + QString::fromUtf8(NameOf(number)));
    Require(file.open(QIODevice::WriteOnly) && file.write(Content()) == kFileSize, "writing a file");
  }
}

void PutAll(OriginalFiles& store, qint64 count, Meter& meter) {
  meter.Start();
  for (qint64 number = 0; number < count; ++number) {
    QBuffer source;
    source.setData(Content());
    source.open(QIODevice::ReadOnly);
    store.Put(PlaceOf(number), source);
  }
  meter.Stop();
}

/// @param open makes the device that a file is read into
template <typename Open>
void GetAll(OriginalFiles& store, qint64 count, Meter& meter, Open open) {
  meter.Start();
  for (qint64 number = 0; number < count; ++number) {
    auto target = open(number);
    store.Get(PlaceOf(number), *target);
    Require(target->size() == kFileSize, "reading a file");
  }
  meter.Stop();
}

std::unique_ptr<OriginalFiles> DirectoryStore(const QTemporaryDir& folder) {
  OriginalsRequest request;
  request.storeRoot = folder.path();
  return OpenOriginalFiles(request);
}

void DirectoryPut(const Setting& setting, Meter& meter) {
  const QTemporaryDir folder;
  PutAll(*DirectoryStore(folder), setting.rows, meter);
}

void DirectoryGet(const Setting& setting, Meter& meter) {
  const QTemporaryDir folder;
  const QTemporaryDir out;
  MakeFiles(folder.path(), setting.rows);
  GetAll(*DirectoryStore(folder), setting.rows, meter, [&](qint64 number) {
    auto file = std::make_unique<QFile>(out.filePath(QString::number(number)));
    Require(file->open(QIODevice::WriteOnly | QIODevice::Unbuffered), "opening a file");
    return file;
  });
}

/// The calls of the system alone, in the order that a file takes which is to stand there whole.
void CopyIn(const Setting& setting, Meter& meter, bool synced) {
  const QTemporaryDir folder;
  const QByteArray top = QFile::encodeName(folder.path()) + '/', part = top + "2026/part";
  mkdir((top + "2026").constData(), 0777);
  meter.Start();
  for (qint64 number = 0; number < setting.rows; ++number) {
    const int file = open(part.constData(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    Require(write(file, Content().constData(), kFileSize) == kFileSize, "write");
    if (synced) fsync(file);
    close(file);
    Require(rename(part.constData(), (top + NameOf(number)).constData()) == 0, "rename");
    if (!synced) continue;
    const int directory = open((top + "2026").constData(), O_RDONLY | O_DIRECTORY);
    fsync(directory);
    close(directory);
  }
  meter.Stop();
}

void CopyOut(const Setting& setting, Meter& meter) {
  const QTemporaryDir folder, out;
  MakeFiles(folder.path(), setting.rows);
  const QByteArray top = QFile::encodeName(folder.path()) + '/', outside = QFile::encodeName(out.path()) + '/';
  QByteArray content(kFileSize, Qt::Uninitialized);
  meter.Start();
  for (qint64 number = 0; number < setting.rows; ++number) {
    const int from = open((top + NameOf(number)).constData(), O_RDONLY);
    const int to = open((outside + QByteArray::number(number)).constData(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    Require(read(from, content.data(), kFileSize) == kFileSize, "read");
    Require(write(to, content.constData(), kFileSize) == kFileSize, "write");
    close(from);
    close(to);
  }
  meter.Stop();
}

std::unique_ptr<OriginalFiles> ServerStore(const Server& server) {
  OriginalsRequest request;
  request.databaseKind = u"SQL SERVER"_s;
  request.ftp = std::make_shared<FtpConnection>(server.Login());
  return OpenOriginalFiles(request);
}

void FtpPut(const Setting& setting, Meter& meter) {
  const Server server;
  PutAll(*ServerStore(server), setting.rows, meter);
}

void FtpGet(const Setting& setting, Meter& meter) {
  const Server server;
  MakeFiles(server.Top(), setting.rows);
  GetAll(*ServerStore(server), setting.rows, meter, [](qint64) {
    auto buffer = std::make_unique<QBuffer>();
    buffer->open(QIODevice::WriteOnly);
    return buffer;
  });
}

std::size_t ReadContent(char* bytes, std::size_t size, std::size_t count, void* position) {
  auto& done = *static_cast<qint64*>(position);
  const qint64 length = std::min(qint64(size * count), kFileSize - done);
  std::copy_n(Content().constData() + done, length, bytes);
  done += length;
  return std::size_t(length);
}

std::size_t AppendContent(char* bytes, std::size_t size, std::size_t count, void* target) {
  static_cast<QByteArray*>(target)->append(bytes, qsizetype(size * count));
  return size * count;
}

/// One handle, a transfer for each file; the directory is entered once and nothing looked at.
void CurlAll(const Server& server, qint64 count, bool upload, Meter& meter) {
  const FtpLogin login = server.Login();
  const QByteArray top = "ftp://127.0.0.1:" + QByteArray::number(login.port) + '/';
  CURL* handle = curl_easy_init();
  curl_easy_setopt(handle, CURLOPT_USERNAME, login.user.toUtf8().constData());
  curl_easy_setopt(handle, CURLOPT_PASSWORD, login.password.toUtf8().constData());
  curl_easy_setopt(handle, CURLOPT_UPLOAD, long(upload));
  // Without a watch on the speed some versions of the library pause before each data connection.
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(handle, CURLOPT_LOW_SPEED_TIME, 30L);
  curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, kBuffer);
  curl_easy_setopt(handle, CURLOPT_UPLOAD_BUFFERSIZE, kBuffer);
  curl_easy_setopt(handle, CURLOPT_READFUNCTION, ReadContent);
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, AppendContent);
  meter.Start();
  for (qint64 number = 0; number < count; ++number) {
    qint64 done = 0;
    QByteArray target;
    curl_easy_setopt(handle, CURLOPT_URL, (top + NameOf(number)).constData());
    curl_easy_setopt(handle, CURLOPT_READDATA, &done);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &target);
    Require(curl_easy_perform(handle) == CURLE_OK && (upload ? done : target.size()) == kFileSize, "a transfer");
  }
  meter.Stop();
  curl_easy_cleanup(handle);
}

void CurlPut(const Setting& setting, Meter& meter) {
  const Server server;
  QDir(server.Top()).mkpath(u"2026"_s);
  CurlAll(server, setting.rows, true, meter);
}

void CurlGet(const Setting& setting, Meter& meter) {
  const Server server;
  MakeFiles(server.Top(), setting.rows);
  CurlAll(server, setting.rows, false, meter);
}

}  // namespace

Cases OriginalsCases() {
  return {{u"store-put"_s, DirectoryPut},
          {u"store-get"_s, DirectoryGet},
          {u"copy-put"_s, [](const Setting& setting, Meter& meter) { CopyIn(setting, meter, true); }},
          {u"copy-put-unsynced"_s, [](const Setting& setting, Meter& meter) { CopyIn(setting, meter, false); }},
          {u"copy-get"_s, CopyOut},
          {u"ftp-put"_s, FtpPut},
          {u"ftp-get"_s, FtpGet},
          {u"curl-put"_s, CurlPut},
          {u"curl-get"_s, CurlGet}};
}

}  // namespace folvane::bench
