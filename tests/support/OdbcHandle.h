#pragma once

#include <QStringList>
#include <sql.h>
#include <vector>

namespace folvane::test {

/// A connected ODBC handle as a host opens one; disconnected and freed with the object.
class OdbcHandle {
 public:
  enum class Calls { Ansi, Wide };
  /// @param connection the connection string, in UTF-8 @param calls the kind of call that connects
  /// @throws std::runtime_error
  explicit OdbcHandle(QByteArray connection, Calls calls = Calls::Ansi);
  ~OdbcHandle();
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;

  SQLHDBC Connection() const { return connection_; }
  /// The rows of one statement, each value as text, "<null>" for null. @throws std::runtime_error
  std::vector<QStringList> Rows(const QString& sql);

 private:
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
};

}  // namespace folvane::test
