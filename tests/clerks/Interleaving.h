#pragma once

#include <functional>
#include <memory>

#include <folvane/Connection.h>

#include "support/Dice.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// How many interleavings a test runs, and what they follow from: FOLVANE_CLERKS_COUNT and FOLVANE_CLERKS_SEED.
struct ClerksRun {
  int count, seed;
  static ClerksRun FromEnvironment();
};

/// Two users' connections to one database, driven from one thread: where one of them waits for the other, the wait ends
/// as an error soon. What works on a connection finds it in the shared state, too.
class TwoUsers {
 public:
  explicit TwoUsers(TestDatabase& database);

  const std::shared_ptr<Connection>& Of(int user) const { return users_[user]; }
  /// Does something as one of them.
  void As(int user, const std::function<void()>& deed);
  /// The same, and right before its statement number `statement`, counted from 1, lets the other do something; where it
  /// has not that many, the other comes after it.
  void AsInterrupted(int user, int statement, const std::function<void()>& deed, const std::function<void()>& other);

 private:
  std::shared_ptr<Connection> users_[2];
};

/// What came of the interleavings of a test.
struct Figures {
  int kept = 0, told = 0;
  int deletedUnread = 0;  ///< deletions that took along what another user had changed since the row was read

  void Print(const char* what, const std::string& database, const ClerksRun& run) const;
};

}  // namespace folvane::test
