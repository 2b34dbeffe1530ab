#pragma once

#include <QString>
#include <vector>

#include "query/SearchFields.h"

namespace folvane {

/// A table by its caption and its name.
struct NamedTable {
  QString caption, table;

  bool operator==(const NamedTable&) const = default;
};

/// The tables of a kind: 1 file tables, 2 archive tables; none for any other number. @throws DataError
std::vector<NamedTable> ReadTablesOfKind(int kind);

/// The fields of a table, by name. @throws DataError
std::vector<NamedField> ReadFieldsByName(const QString& table);

}  // namespace folvane
