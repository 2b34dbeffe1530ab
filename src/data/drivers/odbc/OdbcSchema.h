#pragma once

#include <optional>
#include <sql.h>

#include "data/Schema.h"

namespace folvane {

class Driver;

/// The columns and the key of a table or view on the search path, from PostgreSQL's own catalogue.
std::optional<TableInfo> DescribePostgresTable(Driver& driver, const QString& table);

/// The same by ODBC's catalogue functions, for any other server.
std::optional<TableInfo> DescribeOdbcTable(SQLHDBC connection, const QString& table);

/// The name of a collation of PostgreSQL that orders Chinese by pinyin, "" where the server has none.
QByteArray FindPostgresPinyin(Driver& driver);

}  // namespace folvane
