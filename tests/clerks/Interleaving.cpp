#include "clerks/Interleaving.h"

#include <QScopedValueRollback>
#include <cstdio>

#include "data/DatabaseSession.h"
#include "shell/SharedState.h"

namespace folvane::test {

namespace {

int NumberIn(const char* variable, int otherwise) {
  bool isNumber = false;
  const int number = qEnvironmentVariableIntValue(variable, &isNumber);
  return isNumber ? number : otherwise;
}

}  // namespace

ClerksRun ClerksRun::FromEnvironment() {
  return {NumberIn("FOLVANE_CLERKS_COUNT", 60), NumberIn("FOLVANE_CLERKS_SEED", 1)};
}

TwoUsers::TwoUsers(TestDatabase& database) {
  for (std::shared_ptr<Connection>& user : users_) {
    user = database.Connect();
    if (database.Kind() == "PostgreSQL") DatabaseSession::Of(*user).ExecuteNative({"SET lock_timeout = '20ms'", {}});
  }
}

void TwoUsers::As(int user, const std::function<void()>& deed) {
  const QScopedValueRollback connection(Shared().Connection, users_[user]);
  deed();
}

void TwoUsers::AsInterrupted(int user, int statement, const std::function<void()>& deed,
                             const std::function<void()>& other) {
  int left = statement;
  const auto interrupt = [&] { As(1 - user, other); };
  users_[user]->OnStatement([&](const QString&) {
    if (--left == 0) interrupt();
  });
  As(user, deed);
  users_[user]->OnStatement({});
  if (left > 0) interrupt();
}

void Figures::Print(const char* what, const std::string& database, const ClerksRun& run) const {
  std::printf(
      "clerks: %s on %s, FOLVANE_CLERKS_SEED=%d, %d interleavings: %d writes kept, %d users told, %d deletions over "
      "unread changes\n",
      what, database.c_str(), run.seed, run.count, kept, told, deletedUnread);
}

}  // namespace folvane::test
