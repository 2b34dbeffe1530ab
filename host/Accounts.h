#pragma once

#include <QDateTime>
#include <QString>
#include <memory>

#include <folvane/Connection.h>

namespace folvane::host {

/// Who may log on to a database. Passwords are kept as argon2id hashes in HostAccount, a table of the program's own.
///
/// All members throw DataError; HostError, in words for the user, where it is said.
class Accounts {
 public:
  explicit Accounts(std::shared_ptr<folvane::Connection> connection) : connection_(std::move(connection)) {}

  enum class Rule {
    Free,           ///< the demo database: anyone, without a password
    FirstPassword,  ///< nobody has a password yet: the administrator is to choose one
    Password,
  };
  Rule LogOnRule() const;
  /// Whether the user has a password.
  bool IsKnown(const QString& userId) const;

  /// Lets the user in who has that password. Each try counts until one succeeds; after five that failed the user is
  /// kept out for a quarter of an hour, and again after each further one. @throws HostError
  void LogOn(const QString& userId, const QString& password) const;
  /// Gives the user a password, and lets in again who was kept out. @throws HostError for one that is too short or the
  /// user's own number, and where no memory is left to make the hash
  void SetPassword(const QString& userId, const QString& password) const;

  static constexpr int kTries = 5, kMinutesOut = 15, kShortest = 8;

 private:
  struct Account {
    QString hash;
    int failures = 0;
    QDateTime lockedUntil;
  };
  Account Read(const QString& userId) const;
  [[noreturn]] void RefusePassword(const QString& userId) const;

  std::shared_ptr<folvane::Connection> connection_;
};

/// The administrator's number, however it is written.
bool IsAdministrator(const QString& userId);

}  // namespace folvane::host
