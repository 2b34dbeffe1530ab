#pragma once

#include <memory>
#include <vector>

#include <folvane/Connection.h>

#include "catalogue/RowDescription.h"
#include "data/Recordset.h"

namespace folvane {

/// The current row of a record set as a row struct. Members whose column the statement did not ask for keep their
/// default; a null is "" or 0, a date YYYY-MM-DD.
template <class Row>
Row ReadRow(const Recordset& records) {
  Row row;
  const FieldList fields = records.Fields();
  for (const RowColumn<Row>& column : Row::Columns()) {
    const int index = fields.IndexOf(column.column.name);
    if (index < 0) continue;
    const Field field = fields.Item(index);
    if (const auto* text = std::get_if<QString Row::*>(&column.member))
      row.** text = field.Text();
    else
      row.*std::get<int Row::*>(column.member) = field.Value().toInt();
  }
  return row;
}

/// All rows of a statement over one table. @throws DataError
template <class Row>
std::vector<Row> ReadRows(const std::shared_ptr<Connection>& connection, const QString& statement) {
  Recordset records;
  records.Open(statement, connection, CursorType::Static, LockType::ReadOnly);
  std::vector<Row> rows;
  for (; !records.EOF_(); records.MoveNext()) rows.push_back(ReadRow<Row>(records));
  return rows;
}

}  // namespace folvane
