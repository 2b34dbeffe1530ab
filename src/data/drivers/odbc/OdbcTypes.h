#pragma once

#include <sql.h>

#include "data/RowStore.h"
#include "data/Schema.h"
#include "data/drivers/Driver.h"

namespace folvane {

class OdbcStatement;

/// A column of a result as ODBC describes it.
struct OdbcColumn {
  ColumnInfo info;
  Cell::Kind kind = Cell::Text;  ///< how its values are kept in the row store
  qint64 mostBytes = 0;          ///< no value is longer in UTF-8; 0 when there is no telling
};

/// The ADO type, the size and the way to keep values of an SQL type.
/// @param typeName the type by the server's own name: PostgreSQL's driver gives text, booleans and wide varchars the
///                 same SQL types, by its settings
/// @param size     characters, or bytes of a binary type
OdbcColumn DescribeOdbcType(DialectKind dialect, SQLSMALLINT sqlType, const QByteArray& typeName, qint64 size);

/// The columns of the result of a statement that was run. @throws DataError
std::vector<OdbcColumn> DescribeResult(DialectKind dialect, OdbcStatement& statement);

}  // namespace folvane
