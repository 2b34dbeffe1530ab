#pragma once

#include <optional>
#include <utility>

#include <folvane/Connection.h>
#include <folvane/DataError.h>

namespace folvane {

/// Runs statements that stand or fall together: in a transaction of their own, or within the one that is going on.
template <typename Work>
void InOneTransaction(Connection& connection, Work&& work) {
  std::optional<Transaction> transaction;
  try {
    if (!connection.InTransaction()) transaction.emplace(connection);
  } catch (const DataError& error) {
    // The host has begun one on its handle, of which the connection does not know.
    if (error.Kind() != DataErrorKind::Usage) throw;
  }
  std::forward<Work>(work)();
  if (transaction) transaction->Commit();
}

}  // namespace folvane
