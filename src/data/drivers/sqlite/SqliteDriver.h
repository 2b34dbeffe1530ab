#pragma once

#include <QHash>
#include <memory>

#include "data/drivers/Driver.h"

struct sqlite3;

namespace folvane {

class SqliteStatement;

/// The driver over an sqlite3 handle. Prepared statements are kept only inside a transaction of ours: at rest nothing
/// of the library stands in the way of the host closing its handle.
class SqliteDriver final : public Driver {
 public:
  explicit SqliteDriver(sqlite3* database);
  ~SqliteDriver() override;

  DialectKind Dialect() const override { return DialectKind::Sqlite; }
  qint64 Execute(const NativeStatement& statement) override;
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override;
  std::optional<TableInfo> Describe(const QString& table) override;
  QByteArray PinyinCollation() override;
  void Begin() override;
  void Commit() override;
  void Rollback() override;
  bool InTransaction() const override;

 private:
  std::shared_ptr<SqliteStatement> Prepare(const QByteArray& text);

  sqlite3* database_;
  bool inTransaction_ = false;
  QHash<QByteArray, std::shared_ptr<SqliteStatement>> prepared_;
};

}  // namespace folvane
