#include "support/FtpServer.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <gtest/gtest.h>
#include <stdexcept>

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

FtpServer::FtpServer(const QStringList& options) {
  if (options.contains(u"tls"_s)) MakeCertificate();
  process_.setProcessChannelMode(QProcess::SeparateChannels);
  process_.setStandardErrorFile(InFolder(u"errors"_s));
  const QString script = QString::fromUtf8(TEST_SURROUNDINGS "/ftp-server.py");
  process_.start(u"/usr/bin/python3"_s, QStringList{script, folder_.path()} + options);
  if (process_.waitForReadyRead(20'000)) port_ = process_.readAllStandardOutput().trimmed().toUShort();
  if (port_ == 0) {
    QFile errors(InFolder(u"errors"_s));
    const QByteArray reason = errors.open(QIODevice::ReadOnly) ? errors.readAll() : QByteArray();
    throw std::runtime_error("the FTP server does not start: " + reason.toStdString());
  }
}

FtpServer::~FtpServer() {
  process_.closeWriteChannel();
  if (!process_.waitForFinished(5'000)) process_.kill();
  process_.waitForFinished(1'000);
}

FtpLogin FtpServer::Login() const { return {u"127.0.0.1"_s, port_, u"归档@x:y"_s, u"p:w@/%41 字"_s}; }

QString FtpServer::InFolder(const QString& file) const { return folder_.filePath(file); }

QString FtpServer::Path(const QString& file) const { return InFolder(u"files/"_s + file); }

QByteArray FtpServer::Read(const QString& file) const {
  QFile stored(Path(file));
  if (!stored.open(QIODevice::ReadOnly)) ADD_FAILURE() << "the server has no file " << file.toStdString();
  return stored.readAll();
}

bool FtpServer::Has(const QString& file) const { return QFileInfo::exists(Path(file)); }

void FtpServer::Write(const QString& file, const QByteArray& bytes) const {
  QDir().mkpath(QFileInfo(Path(file)).absolutePath());
  QFile stored(Path(file));
  if (!stored.open(QIODevice::WriteOnly) || stored.write(bytes) != bytes.size())
    ADD_FAILURE() << "cannot write " << file.toStdString();
}

QStringList FtpServer::Files() const {
  QStringList files;
  QDirIterator each(Path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
  while (each.hasNext()) files << QDir(Path()).relativeFilePath(each.next());
  files.sort();
  return files;
}

QString FtpServer::Certificate() const { return InFolder(u"certificate.pem"_s); }

QStringList FtpServer::TakeCommands() {
  QFile log(InFolder(u"commands"_s));
  if (!log.open(QIODevice::ReadWrite)) return {};
  const QStringList commands = QString::fromUtf8(log.readAll()).split(u'\n', Qt::SkipEmptyParts);
  log.resize(0);
  return commands;
}

void FtpServer::SetRules(const QString& lines) {
  QSaveFile rules(InFolder(u"rules"_s));
  if (!rules.open(QIODevice::WriteOnly) || rules.write(lines.toUtf8()) < 0 || !rules.commit())
    ADD_FAILURE() << "the rules of the FTP server cannot be written";
}

void FtpServer::Reset() {
  SetRules({});
  TakeCommands();
  QDir(Path()).removeRecursively();
  QDir().mkpath(Path());
}

void FtpServer::MakeCertificate() const {
  QProcess openssl;
  openssl.start(u"openssl"_s,
                {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s, u"-nodes"_s,
                 u"-subj"_s, u"/CN=127.0.0.1"_s, u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s, u"-days"_s, u"2"_s,
                 u"-keyout"_s, InFolder(u"key.pem"_s), u"-out"_s, InFolder(u"plain.pem"_s)});
  openssl.waitForFinished();
  QFile key(InFolder(u"key.pem"_s)), plain(InFolder(u"plain.pem"_s)), both(Certificate());
  if (!key.open(QIODevice::ReadOnly) || !plain.open(QIODevice::ReadOnly) || !both.open(QIODevice::WriteOnly))
    throw std::runtime_error("openssl makes no certificate: " + openssl.readAllStandardError().toStdString());
  both.write(plain.readAll() + key.readAll());
}

}  // namespace folvane::test
