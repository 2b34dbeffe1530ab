#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>

namespace folvane {

/// Text in the form that compares equal for texts which the database calls equal: ASCII letters small, trailing blanks
/// gone.
inline QByteArrayView WithoutTrailingBlanks(QByteArrayView text) {
  qsizetype length = text.size();
  while (length > 0 && text[length - 1] == ' ') --length;
  return text.first(length);
}

inline char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; }

inline QByteArray FoldText(QByteArrayView utf8) {
  QByteArray folded = WithoutTrailingBlanks(utf8).toByteArray();
  for (char& c : folded) c = FoldAscii(c);
  return folded;
}

/// A hash that texts of one folded form share, without making that form.
inline std::size_t FoldedHash(QByteArrayView utf8) {
  std::uint64_t hash = 0xcbf29ce484222325u;  // FNV-1a, http://www.isthe.com/chongo/tech/comp/fnv/
  for (const char c : WithoutTrailingBlanks(utf8)) hash = (hash ^ uchar(FoldAscii(c))) * 0x100000001b3u;
  return size_t(hash ^ (hash >> 32));
}

inline QByteArray FoldText(const QString& text) { return FoldText(QByteArrayView(text.toUtf8())); }

}  // namespace folvane
