#pragma once

#include <sql.h>
#include <vector>

#include "data/NativeStatement.h"

namespace folvane {

/// A statement handle as a scope. All calls are the ANSI ones, with UTF-8.
class OdbcStatement {
 public:
  /// @throws DataError
  explicit OdbcStatement(SQLHDBC connection);
  ~OdbcStatement();
  OdbcStatement(const OdbcStatement&) = delete;
  OdbcStatement& operator=(const OdbcStatement&) = delete;

  /// Has the statement kept ready on the server; Execute then runs it as often as wanted. @throws DataError
  void Prepare(const QByteArray& text);
  /// Runs the statement that was prepared with these values for its "?" markers. @throws DataError
  void Execute(const std::vector<QVariant>& parameters);
  /// Runs a statement once. @throws DataError
  void ExecuteDirect(const NativeStatement& statement);
  /// Rows changed by the statement that was run, -1 when unknown. Reads on over all its results. @throws DataError
  qint64 ChangedRows();

  SQLHSTMT Handle() const { return statement_; }
  SQLHDBC Connection() const { return connection_; }
  /// Throws the statement's diagnostic unless the call succeeded. @return the outcome
  SQLRETURN Check(SQLRETURN outcome);

 private:
  /// A value as it lies in memory while the statement runs.
  struct Bound {
    QByteArray bytes;
    qint64 integer = 0;
    SQLLEN length = 0;
  };
  void Bind(const std::vector<QVariant>& parameters);
  void BindValue(SQLUSMALLINT number, const QVariant& value, Bound& bound);

  SQLHDBC connection_;
  SQLHSTMT statement_ = SQL_NULL_HSTMT;
  bool hadNoRows_ = false;
  std::vector<Bound> bound_;
};

}  // namespace folvane
