#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <folvane/Connection.h>

#include "faults/Disk.h"
#include "support/TestDatabase.h"

namespace folvane {
class Driver;
}

namespace folvane::test {

/// How a statement fails.
enum class FaultKind {
  Refused,        ///< the database does not allow it
  CommitRefused,  ///< what it would make last is rolled back
  Interrupted,    ///< ended in its midst
  Locked,         ///< another connection holds the database
  Full,           ///< no room on the disk, until the command is over
  Write,          ///< writes fail half-way
  Sync,           ///< what was written cannot be made to last
  Read,           ///< reads fail
  Gone,           ///< nothing of the disk can be reached any more, until the command is over
  Ended           ///< the server ends the connection
};

struct Fault {
  FaultKind kind;
  int statement;  ///< from 1, counted from where the fault is armed
  int depth = 1;  ///< of an interruption: after how many steps of the database's machine
};

std::vector<FaultKind> FaultsOf(const std::string& database);
std::string NameOf(FaultKind kind);

/// The connection of a command, which counts its statements and has one of them fail. Beginning and ending a
/// transaction and asking for a table's columns count as statements.
class FaultyConnection {
 public:
  /// A connection of its own to the database of a test. @param disk on which the databases of SQLite lie
  FaultyConnection(TestDatabase& database, Disk& disk);
  ~FaultyConnection();

  const std::shared_ptr<Connection>& Get() const { return connection_; }
  /// Counts from 1, and has a statement fail where a fault is given.
  void Arm(const std::optional<Fault>& fault);
  /// All is well again.
  void Disarm();

  /// Fails the test where a transaction is open on the handle itself.
  void ExpectAtRest();

  int Statements() const { return statements_; }  ///< since it was armed
  /// Whether a statement failed since it was armed.
  bool HasFailed() const { return hasFailed_; }
  /// The statement that the fault met.
  const std::string& Met() const { return met_; }
  /// Called after each statement that leaves no transaction open.
  std::function<void()> afterLasting;

 private:
  friend class CountingDriver;
  template <typename Work>
  auto Run(const char* text, Work work);
  void Strike();
  void Relent();
  void StrikeSqlite();
  void LockOut();

  TestDatabase& database_;
  Disk& disk_;
  QByteArray path_;            ///< of SQLite's file
  sqlite3* handle_ = nullptr;  ///< SQLite's
  sqlite3* other_ = nullptr;   ///< another connection's
  QString backend_;            ///< the process of the server
  std::shared_ptr<Connection> inner_, connection_;
  Driver* driver_ = nullptr;
  std::optional<Fault> fault_;
  int statements_ = 0;
  bool hasFailed_ = false;
  std::string met_;
};

}  // namespace folvane::test
