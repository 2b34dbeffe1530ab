#pragma once

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <folvane/Connection.h>

#include "support/QtPrinting.h"

namespace folvane::test {

/// Makes tables through a connection.
using TableMaker = void(Connection& connection);

/// A fresh, empty database for one test: a temporary file of SQLite, or a schema of its own on the PostgreSQL server
/// that FOLVANE_TEST_PG names. It goes with this object.
class TestDatabase {
 public:
  /// @param kind "SQLite" or "PostgreSQL"
  /// @throws std::runtime_error when the database cannot be made
  static std::unique_ptr<TestDatabase> Create(const std::string& kind);
  virtual ~TestDatabase() = default;

  /// A connection of its own handle at each call, as a host or a second user would open one. The handle is closed with
  /// the last holder of the connection.
  virtual std::shared_ptr<Connection> Connect() = 0;
  /// Runs one statement in the database's own words on a handle of the test's own. @throws std::runtime_error
  void Native(const QString& sql) { Rows(sql); }
  /// The rows of a statement in the database's own words, each value as text, "<null>" for null.
  virtual std::vector<QStringList> Rows(const QString& sql) = 0;
  /// The first value of the first row, "<no row>" without one.
  QString Value(const QString& sql);

  virtual std::string Kind() const = 0;

  /// Makes empty tables that many tests begin with, on a database that has none yet. What one test has made is kept for
  /// the next: it finds the tables as the maker makes them, without the maker being called.
  virtual void Furnish(TableMaker* make) = 0;
};

/// A test case that runs once on each database. Instantiate with FOLVANE_ON_EACH_DATABASE(Fixture).
class OnEachDatabase : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    database_ = TestDatabase::Create(GetParam());
    connection_ = database_->Connect();
  }
  TestDatabase& Database() { return *database_; }
  const std::shared_ptr<folvane::Connection>& Connected() { return connection_; }
  bool OnSqlite() const { return GetParam() == "SQLite"; }

 private:
  std::unique_ptr<TestDatabase> database_;
  std::shared_ptr<folvane::Connection> connection_;
};

}  // namespace folvane::test

/// Runs the cases of a fixture on every database; they are named Each/Fixture.Case/SQLite and
/// Each/Fixture.Case/PostgreSQL.
#define FOLVANE_ON_EACH_DATABASE(Fixture)                                          \
  INSTANTIATE_TEST_SUITE_P(Each, Fixture, testing::Values("SQLite", "PostgreSQL"), \
                           [](const testing::TestParamInfo<std::string>& database) { return database.param; })
