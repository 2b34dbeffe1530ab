#pragma once

#include <QByteArrayView>
#include <QString>

namespace folvane {

/// The text that a database holds as UTF-8. Qt takes a byte order mark at its beginning for the mark of a file and
/// leaves it out; in a value it is a character, and a text without it would be another one than the row holds.
inline QString TextOfUtf8(QByteArrayView bytes) {
  constexpr QByteArrayView kMark("\xEF\xBB\xBF");
  const QString text = QString::fromUtf8(bytes);
  return bytes.startsWith(kMark) ? QChar(QChar::ByteOrderMark) + text : text;
}

}  // namespace folvane
