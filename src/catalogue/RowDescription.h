#pragma once

#include <QString>
#include <variant>
#include <vector>

#include "catalogue/Table.h"

namespace folvane {

/// A column and the member of a row struct that takes its value: the one place that knows both, from which the table is
/// made and its rows are read.
template <class Row>
struct RowColumn {
  Column column;
  std::variant<QString Row::*, int Row::*> member;

  RowColumn(const QString& name, int length, QString Row::*text)
      : column{name, ColumnType::Text, length}, member(text) {}
  RowColumn(const QString& name, ColumnType type, QString Row::*text) : column{name, type, 0}, member(text) {}
  RowColumn(const QString& name, int Row::*number) : column{name, ColumnType::Integer, 0}, member(number) {}
};

template <class Row>
using RowColumns = std::vector<RowColumn<Row>>;

/// The table of these columns.
template <class Row>
Table TableOf(const QString& name, const RowColumns<Row>& columns, const QStringList& key,
              const std::vector<QStringList>& indexes = {}) {
  Table table{name, {}, key, indexes};
  for (const RowColumn<Row>& column : columns) table.columns.push_back(column.column);
  return table;
}

}  // namespace folvane
