#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <cstring>

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

/// The same for eight characters that lie in one number.
inline std::uint64_t FoldEight(std::uint64_t eight) {
  constexpr std::uint64_t kEach = 0x0101010101010101u;
  const std::uint64_t low = eight & (kEach * 0x7f);
  const std::uint64_t fromA = low + kEach * (0x80 - 'A'), beyondZ = low + kEach * (0x7f - 'Z');
  return eight | ((fromA & ~beyondZ & ~eight & (kEach * 0x80)) >> 2);
}

/// Calls visit with all characters of a text by eight, the last ones filled up with zeros, until it answers false.
template <typename Visit>
inline void ByEight(QByteArrayView text, Visit visit) {
  const char* at = text.data();
  const char* const end = at + text.size();
  std::uint64_t eight = 0;
  for (; end - at >= 8; at += 8) {
    std::memcpy(&eight, at, 8);
    if (!visit(eight)) return;
  }
  eight = 0;
  for (int shift = 0; at < end; ++at, shift += 8) eight |= std::uint64_t(uchar(*at)) << shift;
  visit(eight);
}

/// Whether a text is in its folded form as it is.
inline bool IsFolded(QByteArrayView utf8) {
  bool folded = !utf8.endsWith(' ');
  if (folded) ByEight(utf8, [&](std::uint64_t eight) { return folded = FoldEight(eight) == eight; });
  return folded;
}

/// A hash that texts of one folded form share, without making that form. Those that differ in their last character
/// alone, as numbers one after the other do, come to lie side by side, which spares the memory's caches.
inline std::size_t FoldedHash(QByteArrayView utf8) {
  const QByteArrayView text = WithoutTrailingBlanks(utf8);
  if (text.isEmpty()) return 0;
  auto hash = std::uint64_t(text.size());
  ByEight(text.chopped(1), [&](std::uint64_t eight) {
    hash = (hash ^ FoldEight(eight)) * 0x9e3779b97f4a7c15u;
    hash ^= hash >> 32;
    return true;
  });
  return std::size_t(hash ^ uchar(FoldAscii(text.back())));
}

inline QByteArray FoldText(const QString& text) { return FoldText(QByteArrayView(text.toUtf8())); }

}  // namespace folvane
