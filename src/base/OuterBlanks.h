#pragma once

#include <QString>

namespace folvane {

/// The text without the blanks around it, and blanks only: a no-break space, an ideographic one or a tab belongs to the
/// text.
inline QString WithoutOuterBlanks(const QString& text) {
  qsizetype begin = 0, end = text.size();
  while (begin < end && text[begin] == u' ') ++begin;
  while (end > begin && text[end - 1] == u' ') --end;
  return end - begin == text.size() ? text : text.sliced(begin, end - begin);
}

}  // namespace folvane
