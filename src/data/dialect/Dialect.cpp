#include "data/dialect/Dialect.h"

namespace folvane::sql {

const char* LiteralForms::Of(const QString& op) const {
  if (op == QLatin1String("=")) return equal;
  if (op == QLatin1String("<>")) return unequal;
  if (op == QLatin1String("<")) return less;
  if (op == QLatin1String("<=")) return lessOrEqual;
  if (op == QLatin1String(">")) return greater;
  return greaterOrEqual;
}

const Dialect& DialectOf(DialectKind kind) {
  return kind == DialectKind::PostgreSql ? kPostgreSqlDialect : kSqliteDialect;
}

}  // namespace folvane::sql
