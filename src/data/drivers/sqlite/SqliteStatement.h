#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

#include "data/NativeStatement.h"

struct sqlite3;
struct sqlite3_stmt;

namespace folvane {

/// A prepared statement as a scope: finalized when it is left.
class SqliteStatement {
 public:
  /// @throws DataError
  SqliteStatement(sqlite3* database, const QByteArray& text);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  /// Binds the values of the "?" markers in order. Dates are bound as text.
  void Bind(const std::vector<QVariant>& parameters);
  /// True when there is a row to read, false at the end.
  bool Step();
  void Reset();

  bool IsNull(int column) const;
  QString Text(int column) const;
  qint64 Integer(int column) const;
  sqlite3_stmt* Handle() const { return statement_; }

 private:
  void BindValue(int index, const QVariant& value);
  void BindString(int index, const QString& text);

  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
  // What bound values point at, alive until the next Bind.
  std::vector<QByteArray> bound_;
  std::unique_ptr<char[]> texts_;  ///< the strings in UTF-8, one behind the other
  std::size_t textsSize_ = 0, textsUsed_ = 0;
};

}  // namespace folvane
