#include "records/RecordStatement.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString JoinConditions(const QString& first, const QString& second) {
  if (first.isEmpty() || second.isEmpty()) return first + second;
  return first + u" And "_s + second;
}

QString RecordStatement(const QString& table, const QString& condition, const QString& order) {
  const QString where = condition.isEmpty() ? QString() : u" Where "_s + condition;
  return u"Select * From "_s + table + where + u" Order By "_s + order;
}

}  // namespace folvane
