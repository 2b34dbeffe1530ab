#pragma once

#include <QString>
#include <functional>
#include <memory>

#include <folvane/Export.h>

namespace folvane {

class DatabaseSession;

/// The host's open database connection. Made by AdoptSqlite or AdoptOdbc; it never opens or closes the handle behind
/// it, and the host keeps that handle open for as long as a window of the library is shown.
///
/// Statements are written in the T-SQL flavour and put into the database's own dialect on the way. One statement a
/// call.
class FOLVANE_EXPORT Connection {
 public:
  explicit Connection(std::unique_ptr<DatabaseSession> session);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Runs one statement and gives the number of rows it changed; -1 when the database does not tell.
  /// @throws DataError
  qint64 Execute(const QString& statement);

  /// Starts a transaction. One at a time: a second one inside the first is an error.
  void BeginTrans();
  void CommitTrans();
  /// A rollback that is interrupted is tried again. Where that does not help, the changes stand on the handle without
  /// being kept: every later statement and transaction tries once more, and is refused for as long as that fails.
  void RollbackTrans();
  bool InTransaction() const;

  /// Has every statement told to the observer, as it was composed and before any dialect, whether it is executed or
  /// opened as a record set. The batch writes of a record set are not told. An empty function ends the telling.
  void OnStatement(std::function<void(const QString&)> observer);

 private:
  friend class DatabaseSession;
  std::unique_ptr<DatabaseSession> session_;
};

/// A transaction as a scope: rolls back when it is left without Commit.
class FOLVANE_EXPORT Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();
  void Rollback();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace folvane
