#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace folvane {

/// Text in the form that compares equal for texts which the database calls equal: ASCII letters small, trailing blanks
/// gone.
inline QByteArrayView WithoutTrailingBlanks(QByteArrayView text) {
  qsizetype length = text.size();
  while (length > 0 && text[length - 1] == ' ') --length;
  return text.first(length);
}

inline char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

inline QByteArray FoldText(QByteArrayView utf8) {
  QByteArray folded = WithoutTrailingBlanks(utf8).toByteArray();
  for (char& c : folded) c = FoldAscii(c);
  return folded;
}

inline QByteArray FoldText(const QString& text) { return FoldText(QByteArrayView(text.toUtf8())); }

}  // namespace folvane
