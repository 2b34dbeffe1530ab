#pragma once

#include <QString>

namespace folvane::transfer {

/// Without the blanks that columns of fixed length have at the end.
inline QString WithoutEndBlanks(QString text) {
  while (text.endsWith(u' ')) text.chop(1);
  return text;
}

/// Whether two texts are one to the database: letters of either case, blanks at the end or not.
inline bool IsSame(const QString& one, const QString& other) {
  return WithoutEndBlanks(one).compare(WithoutEndBlanks(other), Qt::CaseInsensitive) == 0;
}

}  // namespace folvane::transfer
