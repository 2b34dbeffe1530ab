#pragma once

#include <QList>
#include <QString>
#include <exception>
#include <memory>

#include <folvane/Connection.h>

namespace folvane::host {

/// Where to find the database: a SQLite file or, when the file is empty, an ODBC connection string.
struct DatabaseChoice {
  QString file, odbc;
  bool operator==(const DatabaseChoice&) const = default;
};

struct HostUser {
  QString id, name;
};

/// Why a database cannot be used, in words for the user.
class HostError : public std::exception {
 public:
  explicit HostError(const QString& message) : message_(message), utf8_(message.toUtf8()) {}
  const QString& Message() const { return message_; }
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString message_;
  QByteArray utf8_;
};

/// A database that the program opened. The library only borrows the handle, and some of what it keeps lives as long as
/// the process: the handle is closed when the last holder of the connection has let go of it.
class HostDatabase {
 public:
  /// Opens the database and reads its users. @throws HostError
  static std::shared_ptr<HostDatabase> Open(const DatabaseChoice& choice);

  const std::shared_ptr<folvane::Connection>& Connection() const { return connection_; }
  const DatabaseChoice& Choice() const { return choice_; }
  /// The rows of UserPopedom by number.
  const QList<HostUser>& Users() const { return users_; }
  /// The user of that number. @throws HostError
  HostUser User(const QString& id) const;
  /// The file's name, or server and database of the connection string; nothing secret.
  QString Title() const;

 private:
  DatabaseChoice choice_;
  std::shared_ptr<folvane::Connection> connection_;
  QList<HostUser> users_;
};

/// What a driver gives back: the connection, closing its handle at the end, and the users.
struct OpenedDatabase {
  std::shared_ptr<folvane::Connection> connection;
  QList<HostUser> users;
};
/// The connection as one that closes the handle it works on once its last holder is gone.
std::shared_ptr<folvane::Connection> KeepOpen(std::shared_ptr<void> handle,
                                              std::shared_ptr<folvane::Connection> connection);

OpenedDatabase OpenSqlite(const QString& file);
OpenedDatabase OpenOdbc(const QString& connectionString);

}  // namespace folvane::host
