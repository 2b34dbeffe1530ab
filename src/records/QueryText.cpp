#include "records/QueryText.h"

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

bool HasTopLevelOr(const QString& condition) {
  try {
    int depth = 0;
    bool found = false;
    for (const sql::Token& token : sql::Tokenize(condition)) {
      if (token.IsSign("("_L1)) ++depth;
      if (token.IsSign(")"_L1) && --depth < 0) return false;
      if (depth == 0 && token.IsWord("or"_L1)) found = true;
    }
    return found && depth == 0;
  } catch (const DataError&) {
    return false;
  }
}

QString JoinedWithRights(const QString& rights, const QString& query) {
  if (rights.isEmpty() || query.isEmpty()) return rights + query;
  return rights + u" And "_s + (HasTopLevelOr(query) ? u"("_s + query + u")"_s : query);
}

}  // namespace folvane
