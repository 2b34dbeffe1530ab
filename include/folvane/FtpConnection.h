#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <folvane/Export.h>

class QIODevice;

namespace folvane {

/// Told how far a transfer has come, in bytes; the total is -1 while it is not known. Answers false to cancel it.
using TransferProgress = std::function<bool(qint64 done, qint64 total)>;

/// How to reach an FTP server and who logs on there. User and password are taken literally.
struct FtpLogin {
  QString server;
  quint16 port = 21;
  QString user, password;
};

/// An entry of a directory on the server.
struct FtpEntry {
  QString name;
  qint64 size = -1;  ///< in bytes, -1 where the server does not tell
  bool isDirectory = false;
};

/// A kept connection to an FTP server (RFC 959): logged on once, passive mode (RFC 2428), encrypted where the server
/// offers that (RFC 4217). One that the server has closed meanwhile is opened again once, silently.
///
/// Names are sent in UTF-8 to a server that announces it (RFC 2640), to any other in the national code page. A name
/// with a line break or a null character is refused before anything is sent.
///
/// Every member throws DataError: Lost when the server cannot be reached or goes away, File when it refuses; the
/// message holds the server's reply, the native code its number.
class FOLVANE_EXPORT FtpConnection {
 public:
  /// Connects and logs on.
  explicit FtpConnection(const FtpLogin& login);
  ~FtpConnection();
  FtpConnection(const FtpConnection&) = delete;
  FtpConnection& operator=(const FtpConnection&) = delete;

  /// Goes into a directory, from the top of the server where the path begins with "/". After a failure the connection
  /// is in no directory, and what works in one is refused until a change succeeds.
  void ChangeDirectory(const QString& path);
  /// Makes a directory with those above it that are missing; one that exists is no error.
  void MakeDirectory(const QString& path);

  // In the current directory; names are without separators.

  std::vector<FtpEntry> List();
  /// The size of a file in bytes, -1 where the server does not tell; none where there is no such file.
  std::optional<qint64> Size(const QString& name);
  void Get(const QString& name, QIODevice& target, const TransferProgress& progress = {});
  /// Sends the rest of a device and compares the sizes; what stands half on the server after a failure is deleted.
  void Put(QIODevice& source, const QString& name, const TransferProgress& progress = {});
  void Delete(const QString& name);
  void Rename(const QString& from, const QString& to);

 private:
  class Session;
  std::unique_ptr<Session> session_;
};

}  // namespace folvane
