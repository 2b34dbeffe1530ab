#include "records/KeyList.h"

#include "shell/CommonRoutines.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QString InKeys(const QStringList& keys) {
  QStringList quoted;
  for (const QString& key : keys) quoted << u"'"_s + EscapeSql(key) + u"'"_s;
  return u" IN ("_s + quoted.join(u',') + u")"_s;
}

}  // namespace folvane
