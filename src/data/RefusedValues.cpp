#include "data/RefusedValues.h"

#include "base/CodePage.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

bool CountsUnits(const ColumnInfo& column) {
  return column.type == AdoType::WChar || column.type == AdoType::VarWChar || column.type == AdoType::LongVarWChar;
}

int LengthIn(const ColumnInfo& column, const QString& text) {
  return CountsUnits(column) ? int(text.size()) : ByteLength(text);
}

DataError TooLongError(const ColumnInfo& column, int length) {
  const QString text = CountsUnits(column) ? u"字段“%1”的值太长：有 %2 个字符，最多 %3 个字符。"_s
                                           : u"字段“%1”的值太长：有 %2 个字节，最多 %3 个字节。"_s;
  return DataError(DataErrorKind::TooLong, text.arg(column.name).arg(length).arg(column.definedSize))
      .About(column.name);
}

QString DuplicateText(const QStringList& columns, const QString& value) {
  if (columns.isEmpty()) return u"已有键值相同的记录。"_s;
  const QString names = u'“' + columns.join(u"”、“"_s) + u'”';
  if (columns.size() > 1) return u"已有字段%1的值都相同的记录。"_s.arg(names);
  if (value.isEmpty()) return u"字段%1的值已经存在。"_s.arg(names);
  return u"字段%1的值“%2”已经存在。"_s.arg(names, value);
}

}  // namespace

bool FitsColumn(const QString& text, const ColumnInfo& column) {
  if (column.definedSize <= 0) return true;  // nothing is known of its size
  return CountsUnits(column) ? text.size() <= column.definedSize : FitsByteLength(text, column.definedSize);
}

QString FittedText(const QString& text, const ColumnInfo& column, const QString& before) {
  if (FitsColumn(text, column)) return text;
  qsizetype bare = text.size();
  while (bare > 0 && text[bare - 1] == u' ') --bare;
  const QString trimmed = text.left(bare);
  const int length = LengthIn(column, trimmed);
  if (length <= column.definedSize) return trimmed + QString(column.definedSize - length, u' ');
  if (!before.isEmpty() && LengthIn(column, text) <= LengthIn(column, before)) return text;
  throw TooLongError(column, length);
}

DataError DuplicateError(const QStringList& columns, const QString& nativeCode, const QString& value) {
  return DataError(DataErrorKind::Constraint, DuplicateText(columns, value), {}, nativeCode)
      .AsDuplicate()
      .About(columns.size() == 1 ? columns[0] : QString());
}

}  // namespace folvane
