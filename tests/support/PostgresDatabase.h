#pragma once

#include <memory>

#include "support/TestDatabase.h"

namespace folvane::test {

class OdbcHandle;

/// The tables that a schema was furnished with.
struct Furniture {
  QString looks;      ///< all that a test may alter of them, short of their rows
  QString lastTable;  ///< the greatest object id; what is beyond it was added by a test
};

/// A schema of its own on the server that FOLVANE_TEST_PG names by an ODBC connection string.
class PostgresDatabase : public TestDatabase {
 public:
  PostgresDatabase();
  ~PostgresDatabase() override;

  std::shared_ptr<Connection> Connect() override;
  std::vector<QStringList> Rows(const QString& sql) override;
  std::string Kind() const override { return "PostgreSQL"; }
  void Furnish(TableMaker* make) override;

 private:
  std::unique_ptr<OdbcHandle> Open() const;
  bool GiveBack();

  QString schema_;
  std::unique_ptr<OdbcHandle> own_;
  TableMaker* maker_ = nullptr;  ///< of the furniture; none where there is none
  Furniture furniture_;
};

}  // namespace folvane::test
