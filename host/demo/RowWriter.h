#pragma once

#include <QStringList>
#include <QVariant>
#include <vector>

#include "data/drivers/Driver.h"

namespace folvane::demo {

/// Adds rows to a table, many to a statement. Finish writes what is left over.
class RowWriter {
 public:
  RowWriter(Driver& driver, const QString& table, QStringList columns);

  /// The values in the order of the columns; an invalid one is null. @throws DataError
  void Add(std::vector<QVariant> values);
  void Finish();

 private:
  QByteArray Text(std::size_t rows) const;

  Driver& driver_;
  QString table_;
  QStringList columns_;
  std::size_t rowsToStatement_;
  NativeStatement full_;  ///< the statement of that many rows, filled row by row
};

}  // namespace folvane::demo
