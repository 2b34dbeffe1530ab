#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <folvane/FtpConnection.h>

namespace folvane::test {

/// A real FTP server on a free port of the loopback, in a process of its own that ends with this object. Its one user
/// has a name and a password that an address could not hold as they are.
class FtpServer {
 public:
  /// @param options "gbk": names in the national code page, listings as text; "list": listings as text; "tls": offers
  /// encryption, with a certificate that it has signed itself; "idle=SECONDS": ends idle connections
  explicit FtpServer(const QStringList& options = {});
  ~FtpServer();

  FtpLogin Login() const;
  /// A path below the folder that it serves.
  QString Path(const QString& file = {}) const;
  QByteArray Read(const QString& file) const;
  bool Has(const QString& file) const;
  void Write(const QString& file, const QByteArray& bytes) const;
  /// All files that it holds, as paths below the folder.
  QStringList Files() const;
  /// The file of its own certificate, which a client may trust.
  QString Certificate() const;

  /// The commands received since the last call, the password left out.
  QStringList TakeCommands();
  /// Has it misbehave from the next command on, "" for no more. Lines: "refuse VERB CODE", "drop VERB TIMES" (-1 for
  /// ever), "hang VERB", "short SIZE", "full BYTES", "cut BYTES", "slow BYTES".
  void SetRules(const QString& lines);
  /// Behaves, holds no files and has received nothing, as if it were new.
  void Reset();

 private:
  QString InFolder(const QString& file) const;
  void MakeCertificate() const;

  QTemporaryDir folder_;
  QProcess process_;
  quint16 port_ = 0;
};

}  // namespace folvane::test
