#include "data/dialect/Dialect.h"

namespace folvane::sql {
using namespace Qt::Literals::StringLiterals;

const char* LiteralForms::Of(const QString& op) const {
  if (op == "="_L1) return equal;
  if (op == "<>"_L1) return unequal;
  if (op == "<"_L1) return less;
  if (op == "<="_L1) return lessOrEqual;
  if (op == ">"_L1) return greater;
  return greaterOrEqual;
}

const Dialect& DialectOf(DialectKind kind) {
  return kind == DialectKind::PostgreSql ? kPostgreSqlDialect : kSqliteDialect;
}

}  // namespace folvane::sql
