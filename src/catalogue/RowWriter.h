#pragma once

#include <QStringList>
#include <QVariant>
#include <vector>

#include <folvane/Connection.h>

#include "data/NativeStatement.h"

namespace folvane {

/// Adds rows to a table in bulk: many to a statement and past the dialect, best inside a transaction. Finish writes
/// what is left over.
class RowWriter {
 public:
  RowWriter(Connection& connection, const QString& table, QStringList columns);

  /// The values in the order of the columns; an invalid one is null. @throws DataError
  void Add(std::vector<QVariant> values);
  void Finish();

 private:
  QByteArray Text(std::size_t rows) const;

  Connection& connection_;
  QString table_;
  QStringList columns_;
  std::size_t rowsToStatement_;
  NativeStatement full_;  ///< the statement of that many rows, filled row by row
};

}  // namespace folvane
