#include "bulk/PageOffset.h"

#include "base/TypedValues.h"
#include "records/MovePlan.h"

namespace folvane {

int MoveNumberOf(const QString& number, bool isPage) {
  const int asked = ToInteger(number);
  if (!isPage || asked == 0) return asked;
  int before = 0;
  if (__builtin_mul_overflow(asked - 1, kPageSize, &before))
    throw NumberError(QStringLiteral("页码“%1”超出了整数的范围。").arg(number));
  return before;
}

}  // namespace folvane
