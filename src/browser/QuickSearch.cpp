#include "browser/QuickSearch.h"

#include "query/Comparison.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kEqual = u"等于"_s;
const QString kUnequal = u"不等于"_s;
const QString kContains = u"包含"_s;
const QString kLacks = u"不包含"_s;

}  // namespace

QStringList RelationWords(const QString& fieldType) {
  static const QStringList ordered{u"数值型"_s, u"自动编号"_s, u"时间型"_s};
  static const QStringList textual{u"文本型"_s, u"文件编号型"_s, u"档案日期型"_s};
  if (ordered.contains(fieldType)) {
    return {kEqual, kUnequal, u"大于"_s, u"小于"_s, u"大于等于"_s, u"小于等于"_s};
  }
  if (textual.contains(fieldType)) return {kContains, kEqual, kLacks, kUnequal};
  return {kEqual, kContains, kUnequal, kLacks};
}

bool AcceptsEmptyValue(const QString& word) { return word == kEqual || word == kUnequal; }

QString SearchCondition(const QString& field, const QString& word, const QString& value) {
  const bool pattern = word == kContains || word == kLacks;
  const QString literal =
      pattern ? u"'%"_s + EscapeSql(value, true) + u"%'"_s : u"'"_s + EscapeSql(value, false) + u"'"_s;
  const QString condition = field + u" "_s + ComparisonOperator(word) + u" "_s + literal;
  if (!value.isEmpty() || !AcceptsEmptyValue(word)) return condition;
  return u"("_s + condition + u" Or "_s + field + (word == kEqual ? u" Is Null)"_s : u" Is Not Null)"_s);
}

QStringList HistoryValues(const QString& history) {
  QStringList values = history.split(u'@').mid(1);
  values.removeAll(QString());
  values.removeDuplicates();
  return values;
}

QString HistoryText(const QStringList& values) { return u"@"_s + values.join(u'@') + u"@"_s; }

}  // namespace folvane
