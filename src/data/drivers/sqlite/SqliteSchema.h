#pragma once

#include <optional>

#include "data/Schema.h"

struct sqlite3;

namespace folvane {

/// Reads "varchar(50)", "integer" and so on into an ADO type and a size. An empty declaration, that of an expression,
/// gives text without a limit.
void ReadDeclaredType(const QString& declared, ColumnInfo& column);

/// The columns and the key of a table or view. The name is compared without regard to case.
std::optional<TableInfo> DescribeSqliteTable(sqlite3* database, const QString& table);

}  // namespace folvane
