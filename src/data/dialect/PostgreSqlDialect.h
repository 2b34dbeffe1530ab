#pragma once

#include "data/dialect/Dialect.h"

namespace folvane::sql {

extern const Dialect kPostgreSqlDialect;

}  // namespace folvane::sql
