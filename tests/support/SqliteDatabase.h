#pragma once

#include <QTemporaryDir>
#include <memory>

#include "support/TestDatabase.h"

struct sqlite3;

namespace folvane::test {

/// A database file in a temporary directory.
class SqliteDatabase : public TestDatabase {
 public:
  SqliteDatabase();
  ~SqliteDatabase() override;

  std::shared_ptr<Connection> Connect() override;
  std::vector<QStringList> Rows(const QString& sql) override;
  std::string Kind() const override { return "SQLite"; }
  void Furnish(TableMaker* make) override;

 private:
  sqlite3* Open() const;

  QTemporaryDir directory_;
  sqlite3* own_ = nullptr;
};

}  // namespace folvane::test
