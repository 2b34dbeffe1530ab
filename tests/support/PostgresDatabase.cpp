#include "support/PostgresDatabase.h"

#include <QUuid>
#include <map>
#include <stdexcept>

#include <folvane/OdbcConnection.h>

#include "support/OdbcHandle.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

void DropSchema(OdbcHandle& handle, const QString& schema) {
  handle.Rows(u"SET client_min_messages = warning"_s);
  handle.Rows(u"DROP SCHEMA "_s + schema + u" CASCADE"_s);
}

/// Furnished schemas that wait for their next test. They go with the program.
struct FreeSchemas {
  std::multimap<TableMaker*, std::pair<QString, Furniture>> byMaker;

  ~FreeSchemas() {
    try {
      OdbcHandle handle(qgetenv("FOLVANE_TEST_PG"));
      for (const auto& [maker, schema] : byMaker) DropSchema(handle, schema.first);
    } catch (const std::exception& error) {
      qWarning("%s", error.what());
    }
  }
};

FreeSchemas& Free() {
  static FreeSchemas schemas;
  return schemas;
}

QString LooksOf(OdbcHandle& handle, const QString& schema) {
  const QString parts =
      u"SELECT concat_ws(' ', 'c', oid, relname, relkind, relhasrules, relhastriggers, relacl) AS part"
      " FROM pg_class WHERE relnamespace = '%1'::regnamespace"
      " UNION ALL SELECT concat_ws(' ', 'a', attrelid, attname, atttypid, atttypmod, attnotnull, atthasdef)"
      " FROM pg_attribute JOIN pg_class c ON attrelid = c.oid WHERE attnum > 0 AND c.relnamespace = '%1'::regnamespace"
      " UNION ALL SELECT concat_ws(' ', 'k', oid, conname) FROM pg_constraint WHERE connamespace = '%1'::regnamespace"
      " UNION ALL SELECT concat_ws(' ', 'p', oid) FROM pg_proc WHERE pronamespace = '%1'::regnamespace"_s.arg(schema);
  return handle.Rows(u"SELECT md5(string_agg(part, ',' ORDER BY part)) FROM ("_s + parts + u") parts"_s)[0][0];
}

// Has every table of a schema for which a condition holds be named to a statement.
void RunOnTables(OdbcHandle& handle, const QString& schema, const QString& condition, const QString& statement) {
  QString all;
  for (const QStringList& table : handle.Rows(
           u"SELECT relname FROM pg_class WHERE relkind = 'r' AND relnamespace = '%1'::regnamespace AND %2"_s.arg(
               schema, condition)))
    all += statement.arg(table[0]) + u"; "_s;
  if (!all.isEmpty()) handle.Rows(u"DO $$ BEGIN "_s + all + u"END $$"_s);
}

}  // namespace

PostgresDatabase::PostgresDatabase() : schema_(u"test_"_s + QUuid::createUuid().toString(QUuid::Id128)) {
  if (!qEnvironmentVariableIsSet("FOLVANE_TEST_PG")) {
    throw std::runtime_error("no PostgreSQL server: run through scripts/with-postgres");
  }
  own_ = Open();
  Native(u"CREATE SCHEMA "_s + schema_);
}

PostgresDatabase::~PostgresDatabase() {
  try {
    // A connection left inside a transaction must fail its test instead of holding it up for ever.
    Native(u"SET lock_timeout = '5s'"_s);
    if (!maker_ || !GiveBack()) DropSchema(*own_, schema_);
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

// Thirty tables take the server longer to make and to drop than most tests take.
void PostgresDatabase::Furnish(TableMaker* make) {
  maker_ = make;
  const auto free = Free().byMaker.find(make);
  if (free == Free().byMaker.end()) {
    make(*Connect());
    const QString last =
        Rows(u"SELECT max(oid) FROM pg_class WHERE relnamespace = '%1'::regnamespace"_s.arg(schema_))[0][0];
    furniture_ = {LooksOf(*own_, schema_), last};
    return;
  }
  Native(u"DROP SCHEMA "_s + schema_);
  Native(u"ALTER SCHEMA %1 RENAME TO %2"_s.arg(free->second.first, schema_));
  furniture_ = free->second.second;
  Free().byMaker.erase(free);
}

// Whether the schema can serve another test: what this one has added goes, what it has altered cannot be mended.
bool PostgresDatabase::GiveBack() {
  RunOnTables(*own_, schema_, u"oid > "_s + furniture_.lastTable, u"DROP TABLE %1 CASCADE"_s);
  if (LooksOf(*own_, schema_) != furniture_.looks) return false;
  // New files for a truncated table cost a hundred times the deletion of a few rows, but undo what many rows leave.
  RunOnTables(*own_, schema_, u"pg_relation_size(oid) BETWEEN 1 AND 8192"_s, u"DELETE FROM %1"_s);
  RunOnTables(*own_, schema_, u"pg_relation_size(oid) > 8192"_s, u"TRUNCATE %1"_s);
  Free().byMaker.emplace(maker_, std::pair(schema_, furniture_));
  return true;
}

}  // namespace folvane::test
