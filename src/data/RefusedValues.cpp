#include "data/RefusedValues.h"

namespace folvane {

namespace {

QString DuplicateText(const QStringList& columns, const QString& value) {
  if (columns.isEmpty()) return QStringLiteral("已有键值相同的记录。");
  const QString names = u'“' + columns.join(QStringLiteral("”、“")) + u'”';
  if (columns.size() > 1) return QStringLiteral("已有字段%1的值都相同的记录。").arg(names);
  if (value.isEmpty()) return QStringLiteral("字段%1的值已经存在。").arg(names);
  return QStringLiteral("字段%1的值“%2”已经存在。").arg(names, value);
}

}  // namespace

DataError TooLongError(const QString& column, int length, int limit) {
  return DataError(
             DataErrorKind::TooLong,
             QStringLiteral("字段“%1”的值太长：有 %2 个字节，最多 %3 个字节。").arg(column).arg(length).arg(limit))
      .About(column);
}

DataError DuplicateError(const QStringList& columns, const QString& nativeCode, const QString& value) {
  return DataError(DataErrorKind::Constraint, DuplicateText(columns, value), {}, nativeCode)
      .AsDuplicate()
      .About(columns.size() == 1 ? columns[0] : QString());
}

}  // namespace folvane
