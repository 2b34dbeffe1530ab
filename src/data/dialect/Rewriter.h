#pragma once

#include "data/dialect/rewrites/Rewrite.h"

namespace folvane::sql {

/// Puts a statement whose types are known into the terms of a dialect, by all the rewrites in their order.
/// @throws DataError Untranslatable
void RewriteStatement(Statement& statement, RewriteContext& context);

}  // namespace folvane::sql
