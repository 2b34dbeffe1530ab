#include "records/RecordStatement.h"

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"
#include "shell/SqlText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString RecordStatement(const QString& table, const QString& condition, const QString& order) {
  const QString where = condition.isEmpty() ? QString() : u" Where "_s + condition;
  return u"Select * From "_s + table + where + u" Order By "_s + order;
}

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

QString InKeys(const QStringList& keys) {
  QStringList quoted;
  for (const QString& key : keys) quoted << u"'"_s + EscapeSql(key) + u"'"_s;
  return u" IN ("_s + quoted.join(u',') + u")"_s;
}

}  // namespace folvane
