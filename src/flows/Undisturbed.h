#pragma once

#include <QByteArray>
#include <memory>
#include <utility>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/OneTransaction.h"
#include "data/Recordset.h"
#include "shell/SharedState.h"

namespace folvane {

/// Reads the current row again by its key. Answers whether another user has taken it away. @throws DataError
inline bool IsGone(Recordset& records) {
  try {
    records.Resync();
    return false;
  } catch (const DataError& error) {
    if (error.Kind() != DataErrorKind::Conflict) throw;
    return true;
  }
}

/// Runs a comparison and the write that it decides on with nobody else's between them: a server has one user wait for
/// the other, elsewhere the transaction keeps what it has read. Answers what the work does. @throws DataError
template <typename Work>
auto Undisturbed(Work&& work) {
  decltype(work()) outcome;
  const std::shared_ptr<Connection> connection = SharedConnection();
  InOneTransaction(*connection, [&] {
    DatabaseSession& session = DatabaseSession::Of(*connection);
    if (const QByteArray wait = session.Words().oneAtATime; !wait.isEmpty()) session.FetchNative({wait, {}});
    outcome = std::forward<Work>(work)();
  });
  return outcome;
}

}  // namespace folvane
