#include "data/dialect/Refusal.h"

#include <folvane/DataError.h>

namespace folvane::sql {
using namespace Qt::Literals::StringLiterals;

void Refuse(const QString& form) {
  throw DataError(DataErrorKind::Untranslatable, u"当前数据库不支持语句中的写法：%1。"_s.arg(form));
}

void RejectSyntax(const QString& what) {
  throw DataError(DataErrorKind::Untranslatable, u"语句有语法错误：%1。"_s.arg(what));
}

void RejectValue(const QString& text, const QString& wanted) {
  throw DataError(DataErrorKind::Conversion, UnfitValueText(text, wanted));
}

QString UnfitValueText(const QString& text, const QString& wanted) {
  return u"文本“%1”不能转换为%2。"_s.arg(text, wanted);
}

}  // namespace folvane::sql
