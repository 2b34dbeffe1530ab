#pragma once

#include <QHash>
#include <memory>
#include <sql.h>

#include "data/drivers/Driver.h"

namespace folvane {

class OdbcStatement;
struct OdbcColumn;

/// The driver over a connected ODBC handle. Statements are kept prepared only inside a transaction of ours, so that at
/// rest nothing of the library stands in the way of the host closing its handle.
class OdbcDriver final : public Driver {
 public:
  /// @throws DataError when the server is of no known kind or does not talk UTF-8
  explicit OdbcDriver(SQLHDBC connection);
  ~OdbcDriver() override;

  DialectKind Dialect() const override { return dialect_; }
  /// PostgreSQL: a statement that fails inside a transaction leaves it standing where the driver guards statements by
  /// savepoints, which is its default. Where it does not, later statements fail as well and Commit refuses.
  qint64 Execute(const NativeStatement& statement) override;
  void Query(const NativeStatement& statement, std::vector<ColumnInfo>& columns, RowStore& rows) override;
  std::optional<TableInfo> Describe(const QString& table) override;
  QByteArray PinyinCollation() override;
  void Begin() override;
  void Commit() override;
  void Rollback() override;
  bool InTransaction() const override;

 private:
  template <typename Work>
  auto Run(Work work);
  void Read(const NativeStatement& native, std::vector<ColumnInfo>& columns, RowStore& rows);
  OdbcStatement& Prepared(const QByteArray& text);
  void ExecuteOnce(const char* text);
  void FindWidths(OdbcStatement& statement, std::vector<OdbcColumn>& columns);
  const std::optional<TableInfo>& Described(const QByteArray& table);
  void CheckEncoding();
  void LeaveTransaction();
  void CheckConnection(SQLRETURN outcome);
  SQLRETURN SetAutocommit(SQLULEN how);

  SQLHDBC connection_;
  DialectKind dialect_;
  bool inTransaction_ = false;
  bool autocommitWasOn_ = false;
  QHash<QByteArray, std::shared_ptr<OdbcStatement>> prepared_;
  QHash<QString, std::optional<TableInfo>> described_;  ///< by the table's name in small letters, as last described
};

/// The dialect of a server by its name (SQL_DBMS_NAME). @throws DataError Usage for a server of another kind
DialectKind DialectOfServer(const QString& name);

}  // namespace folvane
