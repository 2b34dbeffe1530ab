#pragma once

#include <folvane/Connection.h>

#include "data/DatabaseSession.h"
#include "data/NativeStatement.h"
#include "data/Rows.h"

namespace folvane {

/// Writes the pending rows of a record set to the table that it was read from: parameterised statements in the
/// database's own words, by key, with the original values of the changed columns in the Where part.
class BatchWriter {
 public:
  /// @throws DataError Usage when the source does not read one table
  BatchWriter(Connection& connection, const QString& source, Rows& rows);

  /// Writes all of these rows or none, and marks them written. @throws DataError, Conflict for a row that someone else
  /// has changed or deleted
  void Write(const std::vector<RowId>& pending);
  /// Reads a row again by its key. @throws DataError Conflict when it is gone
  std::vector<QVariant> Read(RowId row);

 private:
  struct Written {
    RowId row;
    /// Values as the database keeps them, where it gave them or they were fitted: column of the record set, value.
    std::vector<std::pair<int, QVariant>> given;
  };

  Written WriteOne(RowId row);
  void Insert(Written& written);
  void Update(Written& written);
  void Delete(Written& written);
  /// Runs a statement that gives the columns asked for back, and notes what came. @return how many rows it wrote
  qint64 Run(const NativeStatement& statement, const std::vector<int>& asked, Written& written);
  void RunOnOneRow(const NativeStatement& statement, const std::vector<int>& asked, Written& written);
  bool MayBeRounded(const QVariant& value, const ColumnInfo& column) const;
  QByteArray NamesOf(const std::vector<int>& columns, const QByteArray& word) const;
  QByteArray Compared(int at, const QVariant& value) const;
  void AddCondition(NativeStatement& statement, RowId row, bool withChanges) const;
  void CheckLengths(RowId row) const;
  QVariant Fitted(const QVariant& value, RowId row, int at) const;  ///< @throws DataError TooLong
  QVariant Parameter(const QVariant& value, Written& written, int at) const;
  const ColumnInfo& TableColumn(int at) const { return table_->columns[size_t(tableColumn_[size_t(at)])]; }
  const QByteArray& Name(int at) const { return names_[size_t(at)]; }

  Connection& connection_;
  DatabaseSession& session_;
  Rows& rows_;
  std::shared_ptr<const TableInfo> table_;
  QByteArray tableName_;           ///< as statements write it
  std::vector<int> tableColumn_;   ///< by column of the record set; -1 for one that the table lacks
  std::vector<QByteArray> names_;  ///< of the table's columns as statements write them, by column of the record set
  std::vector<int> key_;           ///< columns of the record set; all comparable ones when the table has no key
};

}  // namespace folvane
