#include "shell/SqlText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString EscapeSql(const QString& text, bool likeMode) {
  QString escaped = text;
  escaped.replace(u'\'', u"''"_s);
  if (likeMode) escaped.replace(u'[', u"[[]"_s);
  return escaped;
}

void SplitText(QStringList& elements, const QString& text, const QString& delimiter) {
  elements = text.split(delimiter.isEmpty() ? u","_s : delimiter);
}

}  // namespace folvane
