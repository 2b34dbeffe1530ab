#include "records/RecordStatement.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString RecordStatement(const QString& table, const QString& condition, const QString& order) {
  const QString where = condition.isEmpty() ? QString() : u" Where "_s + condition;
  return u"Select * From "_s + table + where + u" Order By "_s + order;
}

}  // namespace folvane
