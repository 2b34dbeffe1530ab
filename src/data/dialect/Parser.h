#pragma once

#include <QString>
#include <vector>

#include "data/dialect/SyntaxTree.h"

namespace folvane::sql {

struct Parsed {
  Statement statement;
  /// The literals whose values are part of the statement's structure: sizes of types, styles, aliases in quotes.
  std::vector<int> structural;
};

/// Reads one statement, which a semicolon may end.
/// @throws DataError Untranslatable for a text that is none of the language or a form without a counterpart
Parsed Parse(const QString& statement);

}  // namespace folvane::sql
