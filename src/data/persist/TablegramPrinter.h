#pragma once

#include <QIODevice>
#include <vector>

#include "base/CodePage.h"
#include "data/persist/JsonLine.h"
#include "data/persist/PersistedRecords.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Prints what a file holds as lines of JSON: a line for each record set, one for each of its fields, and one for each
/// row. Equal files make equal lines. Numbers of at most 32 bits and floating ones are JSON numbers, others texts with
/// all their digits; dates are texts as in ISO 8601, bytes hexadecimal.
class TablegramPrinter {
 public:
  TablegramPrinter(const Tablegram& head, CodePageReader& codePage, QIODevice& out);

  /// @throws FileError when the device takes no more, as does Print
  void PrintHead();
  void Print(const PersistedRecord& record);

 private:
  void PrintSet(std::size_t set);
  void PrintField(std::size_t set, std::size_t column);
  void AppendRelation(const ColumnDescriptor& column);
  void AppendOrigin(const ColumnDescriptor& column, const TablegramSet& set);
  void AppendFlags(quint32 flags);
  void AppendValues(QByteArrayView key, std::size_t set, const std::vector<TablegramCell>& cells);
  void EndLine();

  const Tablegram& head_;
  CodePageReader& codePage_;
  QIODevice& out_;
  std::vector<std::vector<QByteArray>> keys_;  ///< of the values in a row, by set and column, as JSON
  JsonLine line_;
};

}  // namespace folvane
