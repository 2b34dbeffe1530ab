#pragma once

#include <QString>
#include <sql.h>

namespace folvane::demo {

/// A connection of its own through the driver manager, ended in the order that ODBC asks for.
class OdbcHandle {
 public:
  /// Tries to connect, for 15 seconds at most.
  explicit OdbcHandle(const QString& connectionString);
  ~OdbcHandle();
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;

  bool Connected() const { return connected_; }
  SQLHDBC Get() const { return connection_; }

 private:
  SQLHENV environment_ = SQL_NULL_HANDLE;
  SQLHDBC connection_ = SQL_NULL_HANDLE;
  bool connected_ = false;
};

/// What the driver says of the last failure of a handle, "" when it says nothing.
QString Diagnosis(SQLSMALLINT type, SQLHANDLE handle);

}  // namespace folvane::demo
