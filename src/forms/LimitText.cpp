#include "forms/LimitText.h"

namespace folvane {

QString LimitText(const QString& length) { return QStringLiteral("限长") + length + QStringLiteral("个字符"); }

std::optional<int> LimitIn(const QString& hint) {
  bool isNumber = false;
  const int limit = hint.mid(2, hint.indexOf(u'个') - 2).toInt(&isNumber);
  return isNumber ? std::optional(limit) : std::nullopt;
}

}  // namespace folvane
