#include "data/dialect/Refusal.h"

#include <folvane/DataError.h>

namespace folvane::sql {

void Refuse(const QString& form, const QString& statement) {
  throw DataError(DataErrorKind::Untranslatable, QStringLiteral("语句中有不支持的写法：%1。").arg(form), statement);
}

}  // namespace folvane::sql
