#pragma once

#include <QByteArray>
#include <QString>
#include <exception>

#include <folvane/Export.h>

namespace folvane {

/// What went wrong, told the same way for every database. More kinds may follow.
enum class DataErrorKind {
  Statement,       ///< the server refused the statement: syntax, missing table or column, bad value
  Untranslatable,  ///< a form of the statement has no counterpart in this database's dialect
  Conversion,      ///< a value cannot be turned into the type that it is compared with or stored as
  Constraint,      ///< a key, null or check constraint refused the row
  TooLong,         ///< a value is longer than its column
  Conflict,        ///< the row was changed or deleted by someone else since it was read
  Locked,          ///< another process holds the lock for longer than the driver waits
  Lost,            ///< the connection or the database file is gone
  Usage,           ///< the caller asked a record set for something it cannot give (no row, unknown field, closed)
  File,            ///< a file of the program could not be read or written
  Other,           ///< anything else, such as memory that has run out
};

/// The error of the library: whatever an operation throws is one. Never crosses the event loop; an entry operation may
/// throw it to the host.
class FOLVANE_EXPORT DataError : public std::exception {
 public:
  /// @param message   the server's text, or ours, in words for the user
  /// @param statement the statement as it was composed, "" when none was running
  /// @param nativeCode the driver's own code (SQLite extended result code, ODBC SQLSTATE and native number)
  DataError(DataErrorKind kind, const QString& message, const QString& statement = {}, const QString& nativeCode = {});

  DataErrorKind Kind() const { return kind_; }
  const QString& Message() const { return message_; }
  const QString& Statement() const { return statement_; }
  const QString& NativeCode() const { return nativeCode_; }
  /// The column that the error is about, "" when it is about none or the server does not tell.
  const QString& Column() const { return column_; }
  DataError& About(const QString& column);
  /// Whether a row was refused because another one has its key, or another value that may occur only once.
  bool IsDuplicate() const { return isDuplicate_; }
  DataError& AsDuplicate();
  /// Gives the error the statement that it belongs to.
  DataError& During(const QString& statement);
  /// The message in UTF-8, for hosts that catch std::exception.
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  DataErrorKind kind_;
  QString message_, statement_, nativeCode_, column_;
  QByteArray utf8_;
  bool isDuplicate_ = false;
};

}  // namespace folvane
