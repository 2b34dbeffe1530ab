#include "query/SimpleCondition.h"

#include <QDate>
#include <QRegularExpression>

#include "base/HalfWidth.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QString LikeCondition(const QString& field, const QString& text) {
  return text.isEmpty() ? QString() : field + u" Like '%"_s + text + u"%'"_s;
}

QString RangeCondition(const QString& field, const QString& begin, const QString& end) {
  if (begin.isEmpty() && end.isEmpty()) return {};
  if (end.isEmpty()) return u"("_s + field + u" >= '"_s + begin + u"')"_s;
  if (begin.isEmpty()) return u"("_s + field + u" <= '"_s + end + u"')"_s;
  return u"("_s + field + u" BETWEEN '"_s + begin + u"' And '"_s + end + u"')"_s;
}

// Eight digits stay what they are: the field may hold them so, as dates of records do. A year and a month stay as they
// are too: a text compares with them as it should.
QString RangeLimit(const QString& typed) {
  static const QRegularExpression fullDate(u"^(\\d{4})[-/.](\\d{1,2})[-/.](\\d{1,2})$"_s);
  const QString limit = ToHalfWidth(typed).trimmed();
  const QRegularExpressionMatch parts = fullDate.match(limit);
  const QDate date(parts.captured(1).toInt(), parts.captured(2).toInt(), parts.captured(3).toInt());
  return date.isValid() ? date.toString(u"yyyy-MM-dd"_s) : limit;
}

QString SimpleCondition(const QString& table, const SimpleCriteria& criteria) {
  const QString ofTable = table + u"."_s;
  QStringList terms;
  for (const QString& like : criteria.likes) terms << (like.isEmpty() ? QString() : ofTable + like);
  terms << criteria.ranges;
  for (const auto& [field, begin, end] : criteria.dates) terms << RangeCondition(ofTable + field, begin, end);
  for (const auto& [field, text] : criteria.dictionaryTexts) terms << LikeCondition(ofTable + field, text);
  terms.removeAll(QString());
  return terms.join(u" And "_s);
}

}  // namespace folvane
