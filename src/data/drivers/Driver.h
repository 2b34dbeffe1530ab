#pragma once

#include <QString>
#include <optional>

#include "data/NativeStatement.h"
#include "data/Schema.h"
#include "data/dialect/NativeWords.h"

namespace folvane {

class RowStore;

/// What a database driver does for the layer above. One instance stands over one open handle that it does not own.
/// Every call throws DataError.
class Driver {
 public:
  virtual ~Driver() = default;

  virtual DialectKind Dialect() const = 0;
  /// Runs a statement without rows; gives the number of changed rows, -1 when unknown.
  virtual qint64 Execute(const NativeStatement& statement) = 0;
  /// Runs a statement with rows: fills columns, then appends every row to the store.
  virtual void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) = 0;
  /// Reads a table's columns and key from the database's own catalogue; nothing when there is no such table or view.
  /// The name is compared without regard to case.
  virtual std::optional<TableInfo> Describe(const QString& table) = 0;
  /// The name of a collation that orders Chinese by pinyin, "" where the database has none.
  virtual QByteArray PinyinCollation() = 0;
  virtual void Begin() = 0;
  virtual void Commit() = 0;
  /// When it throws, InTransaction tells whether the changes still stand there unfinished.
  virtual void Rollback() = 0;
  /// Whether the transaction that Begin started is still open on the handle.
  virtual bool InTransaction() const = 0;
};

}  // namespace folvane
