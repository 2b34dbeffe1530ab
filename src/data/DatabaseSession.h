#pragma once

#include <functional>
#include <memory>

#include <folvane/Connection.h>

#include "data/FetchedRows.h"
#include "data/NativeStatement.h"
#include "data/dialect/NativeWords.h"

namespace folvane {

class Driver;
enum class TextOrder;

/// What stands behind a connection: its driver, what is known of the tables, and the transaction. The library's own
/// code asks it for what hosts do not see. An interface, so that code which is linked apart from the data layer can
/// call it.
class DatabaseSession {
 public:
  static DatabaseSession& Of(Connection& connection) { return *connection.session_; }
  virtual ~DatabaseSession() = default;

  // As Connection says.
  virtual qint64 Execute(const QString& statement) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
  virtual bool InTransaction() const = 0;
  virtual void OnStatement(std::function<void(const QString&)> observer) = 0;

  /// Runs a statement that gives rows and keeps them all. @throws DataError
  virtual FetchedRows Fetch(const QString& statement, TextOrder order) = 0;
  /// The same for rows to work on, of which a large table's are read when they are looked at. They ask this session for
  /// as long as they are kept. @throws DataError
  virtual OpenedRows Open(const QString& statement, TextOrder order) = 0;
  /// The columns and the key of a table, nullptr when the database has no such table. Kept until RefreshSchema.
  virtual const TableInfo* Table(const QString& name) = 0;
  /// Forgets what is known of the tables; called when a statement fails over a table or a column.
  virtual void RefreshSchema() = 0;
  /// The table that a statement of the form Select ... From t ... reads alone; "" for joins and anything else.
  virtual QString BaseTable(const QString& statement) = 0;

  // Past the observer.

  virtual FetchedRows FetchUntold(const QString& statement, TextOrder order) = 0;  ///< @throws DataError

  // Past the translation as well.

  virtual const NativeWords& Words() const = 0;
  /// Runs a statement without rows; gives the number of changed rows, -1 when unknown. @throws DataError
  virtual qint64 ExecuteNative(const NativeStatement& statement) = 0;
  virtual FetchedRows FetchNative(const NativeStatement& statement) = 0;  ///< @throws DataError
  /// The driver, ready for a statement. @throws DataError where a rollback is due that fails
  virtual Driver& NativeDriver() = 0;
};

/// A connection over a driver.
std::shared_ptr<Connection> MakeConnection(std::unique_ptr<Driver> driver);

}  // namespace folvane
