#pragma once

#include <QString>
#include <QVariant>
#include <memory>

#include <folvane/Connection.h>
#include <folvane/Export.h>

namespace folvane {

/// The rows of a statement, read whole, for components that work on the host's database. Rows and columns count from 0.
class FOLVANE_EXPORT ResultSet {
 public:
  /// Runs a statement of the T-SQL flavour that gives rows. @throws DataError
  ResultSet(Connection& connection, const QString& statement);
  ~ResultSet();
  ResultSet(ResultSet&& other) noexcept;
  ResultSet& operator=(ResultSet&& other) noexcept;

  int ColumnCount() const;
  /// As the database spells it. @throws DataError Usage for a column that is not there
  QString ColumnName(int column) const;
  int ColumnType(int column) const;  ///< ADO type number
  /// As declared, for texts in bytes of the national code page; 2147483647 for a long column.
  int ColumnSize(int column) const;
  /// The column of that name without regard to case, -1 when there is none.
  int Find(const QString& name) const;
  qint64 RowCount() const;

  /// Invalid for null, else QString, qlonglong, double, QByteArray, QDate or QDateTime.
  /// @throws DataError Usage for a row or a column that is not there
  QVariant Value(qint64 row, int column) const;
  /// The value as windows show it: "" for null, a date as YYYY-MM-DD.
  QString Text(qint64 row, int column) const;

 private:
  class Rows;
  std::unique_ptr<Rows> rows_;
};

}  // namespace folvane
