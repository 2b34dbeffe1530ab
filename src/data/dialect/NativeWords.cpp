#include "data/dialect/NativeWords.h"

namespace folvane {
namespace {

constexpr NativeWords kTransactSql{
    .openName = '[',
    .closeName = ']',
    .insertedAhead = " OUTPUT INSERTED.",
    .writtenAtEnd = "",
    .storedDate = "%1",
    .oneAtATime = "",
    .text = nullptr,
    .longText = nullptr,
    .integer = nullptr,
    .date = nullptr,
    .blob = nullptr,
};

// SQLite would turn '20020304' in a column declared as a date into a number; as text it stays what was written.
constexpr NativeWords kSqlite{
    .openName = '"',
    .closeName = '"',
    .insertedAhead = "",
    .writtenAtEnd = " RETURNING ",
    .storedDate = "folvane_storeddate(%1,%2)",
    .oneAtATime = "",
    .text = "varchar(%1)",
    .longText = "text",
    .integer = "integer",
    .date = "varchar(10)",
    .blob = "blob",
};

constexpr NativeWords kPostgreSql{
    .openName = '"',
    .closeName = '"',
    .insertedAhead = "",
    .writtenAtEnd = " RETURNING ",
    .storedDate = "%1",
    .oneAtATime = "SELECT pg_advisory_xact_lock(20020304)",
    .text = "varchar(%1)",
    .longText = "text",
    .integer = "integer",
    .date = "date",
    .blob = "bytea",
};

}  // namespace

const NativeWords& WordsOf(DialectKind kind) {
  switch (kind) {
    case DialectKind::Sqlite:
      return kSqlite;
    case DialectKind::PostgreSql:
      return kPostgreSql;
    default:
      return kTransactSql;
  }
}

}  // namespace folvane
