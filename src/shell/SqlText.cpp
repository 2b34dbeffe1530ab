#include "shell/SqlText.h"

#include <folvane/DataError.h>

namespace folvane {
using namespace Qt::Literals::StringLiterals;

constexpr qsizetype kMostShown = 100;

QString EscapeSql(const QString& text, bool likeMode) {
  QString escaped = text;
  escaped.replace(u'\'', u"''"_s);
  if (likeMode) escaped.replace(u'[', u"[[]"_s);
  return escaped;
}

QString UnescapedLiteral(const QString& text) {
  // Two in a row stand for one, and end nothing.
  if (QString(text).remove(u"''"_s).contains(u'\''))
    throw DataError(DataErrorKind::Statement, u"这里不能使用单引号 (')：%1"_s.arg(text.left(kMostShown)));
  return u'\'' + text + u'\'';
}

void SplitText(QStringList& elements, const QString& text, const QString& delimiter) {
  elements = text.split(delimiter.isEmpty() ? u","_s : delimiter);
}

}  // namespace folvane
