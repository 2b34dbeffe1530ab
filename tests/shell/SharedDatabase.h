#pragma once

#include <QComboBox>

#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"

namespace folvane::test {

/// A database with the tables that the shell reads, as the connection that the windows share.
class SharedDatabase : public OnEachDatabase {
 protected:
  void SetUp() override;
  void TearDown() override;
  /// Runs several statements in the database's own words.
  void Run(const QStringList& statements);
  /// The statements that the shared connection was given since, as they were composed.
  const QStringList& Statements() const { return statements_; }

 private:
  QStringList statements_;
};

/// The entries of a list from the first on.
QStringList Entries(const QComboBox& list);

}  // namespace folvane::test
