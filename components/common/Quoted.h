#pragma once

#include <QString>

namespace folvane::components {

/// The text as a literal of a statement.
inline QString Quoted(const QString& text) {
  return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

}  // namespace folvane::components
