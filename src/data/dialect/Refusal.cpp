#include "data/dialect/Refusal.h"

#include <folvane/DataError.h>

namespace folvane::sql {

void Refuse(const QString& form) {
  throw DataError(DataErrorKind::Untranslatable, QStringLiteral("当前数据库不支持语句中的写法：%1。").arg(form));
}

void RejectSyntax(const QString& what) {
  throw DataError(DataErrorKind::Untranslatable, QStringLiteral("语句有语法错误：%1。").arg(what));
}

void RejectValue(const QString& text, const QString& wanted) {
  throw DataError(DataErrorKind::Conversion, UnfitValueText(text, wanted));
}

QString UnfitValueText(const QString& text, const QString& wanted) {
  return QStringLiteral("文本“%1”不能转换为%2。").arg(text, wanted);
}

}  // namespace folvane::sql
