#include "query/ConditionText.h"

#include "query/Comparison.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Comparison(const QString& table, const QueryConditionRow& row) {
  const QString begin = table + u"."_s + row.compField + u" "_s + row.compRelation;
  if (!IsPatternOperator(row.compRelation)) return begin + u" '"_s + row.compValue + u"'"_s;
  return begin + u" '%"_s + QString(row.compValue).replace(u"["_s, u"[[]"_s) + u"%'"_s;
}

QString WordsOf(const QueryConditionRow& row) {
  const QString relation = IsPatternOperator(row.compRelation) ? u"包含"_s : row.chnCompRelation;
  return row.chnCompField + u" "_s + relation + u" "_s + row.compValue;
}

}  // namespace

ConditionText TextOf(const QString& table, const std::vector<QueryConditionRow>& conditions) {
  if (conditions.size() == 1) return {Comparison(table, conditions.front()), WordsOf(conditions.front())};
  ConditionText text;
  for (const QueryConditionRow& row : conditions) {
    text.sql = Comparison(table, row) + u" "_s + row.andOrRelation + u" "_s + text.sql;
    text.words = u"("_s + WordsOf(row) + u") "_s + row.chnAndOrRelation + u" "_s + text.words;
  }
  return text;
}

QString Restricted(const QString& condition, const QString& restriction) {
  if (condition.isEmpty() || restriction.isEmpty()) return condition;
  return condition + u" and "_s + restriction;
}

QString LeftOutText(const QStringList& words, const QString& reason) {
  QStringList given = words;
  given.removeAll(QString());
  return u"%1（%2）"_s.arg(given.join(u' '), reason);
}

QString LeftOutNote(const QStringList& conditions) {
  if (conditions.isEmpty()) return {};
  return u"以下条件不参与查询，或与所示不符：\n"_s + conditions.join(u'\n');
}

}  // namespace folvane
