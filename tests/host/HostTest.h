#pragma once

#include "host/HostDatabase.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// A database with the users 1, 2 and 10, as a host finds it.
class HostTest : public OnEachDatabase {
 protected:
  void SetUp() override;
  /// How the program names this database.
  host::DatabaseChoice Choice();
};

}  // namespace folvane::test
