#pragma once

#include "data/dialect/Dialect.h"

namespace folvane::sql {

extern const Dialect kSqliteDialect;

}  // namespace folvane::sql
