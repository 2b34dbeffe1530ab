#include "support/PostgresDatabase.h"

#include <QUuid>
#include <stdexcept>

#include <folvane/OdbcConnection.h>

#include "support/OdbcHandle.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

PostgresDatabase::PostgresDatabase() : schema_(u"test_"_s + QUuid::createUuid().toString(QUuid::Id128)) {
  if (!qEnvironmentVariableIsSet("FOLVANE_TEST_PG")) {
    throw std::runtime_error("no PostgreSQL server: run through scripts/with-postgres");
  }
  OdbcHandle(qgetenv("FOLVANE_TEST_PG")).Rows(u"CREATE SCHEMA "_s + schema_);
  own_ = Open();
}

PostgresDatabase::~PostgresDatabase() {
  try {
    // A connection left inside a transaction must fail its test instead of holding it up for ever.
    Native(u"SET lock_timeout = '5s'"_s);
    Native(u"SET client_min_messages = warning"_s);
    Native(u"DROP SCHEMA "_s + schema_ + u" CASCADE"_s);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
}

std::unique_ptr<OdbcHandle> PostgresDatabase::Open() const {
  auto handle = std::make_unique<OdbcHandle>(qgetenv("FOLVANE_TEST_PG"));
  handle->Rows(u"SET search_path TO "_s + schema_);
  return handle;
}

std::shared_ptr<Connection> PostgresDatabase::Connect() {
  std::shared_ptr<OdbcHandle> handle = Open();
  std::shared_ptr<Connection> adopted = AdoptOdbc(handle->Connection());
  Connection* connection = adopted.get();
  return {connection, [adopted = std::move(adopted), handle = std::move(handle)](Connection*) mutable {
            adopted.reset();
            handle.reset();
          }};
}

std::vector<QStringList> PostgresDatabase::Rows(const QString& sql) { return own_->Rows(sql); }

}  // namespace folvane::test
