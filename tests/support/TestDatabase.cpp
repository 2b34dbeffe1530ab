#include "support/TestDatabase.h"

#include <stdexcept>

#include "support/PostgresDatabase.h"
#include "support/SqliteDatabase.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

std::unique_ptr<TestDatabase> TestDatabase::Create(const std::string& kind) {
  if (kind == "SQLite") return std::make_unique<SqliteDatabase>();
  if (kind == "PostgreSQL") return std::make_unique<PostgresDatabase>();
  throw std::runtime_error("no test database of the kind " + kind);
}

QString TestDatabase::Value(const QString& sql) {
  const std::vector<QStringList> rows = Rows(sql);
  return rows.empty() ? u"<no row>"_s : rows.front().front();
}

}  // namespace folvane::test
