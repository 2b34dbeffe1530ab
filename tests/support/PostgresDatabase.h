#pragma once

#include <memory>

#include "support/TestDatabase.h"

namespace folvane::test {

class OdbcHandle;

/// A schema of its own on the server that FOLVANE_TEST_PG names by an ODBC connection string.
class PostgresDatabase : public TestDatabase {
 public:
  PostgresDatabase();
  ~PostgresDatabase() override;

  std::shared_ptr<Connection> Connect() override;
  std::vector<QStringList> Rows(const QString& sql) override;
  std::string Kind() const override { return "PostgreSQL"; }

 private:
  std::unique_ptr<OdbcHandle> Open() const;

  QString schema_;
  std::unique_ptr<OdbcHandle> own_;
};

}  // namespace folvane::test
