#pragma once

#include <algorithm>
#include <string_view>

namespace folvane::test::oracle {

// Like of the language, character by character, by trying everything.

inline char32_t Small(char32_t sign) { return sign >= U'A' && sign <= U'Z' ? sign + 32 : sign; }

inline bool IsInLikeClass(std::u32string_view inner, char32_t sign) {
  const bool negated = inner.size() > 1 && inner[0] == U'^';
  if (negated) inner.remove_prefix(1);
  for (std::size_t at = 0; at < inner.size(); ++at) {
    const bool isRange = at + 2 < inner.size() && inner[at + 1] == U'-';
    const char32_t low = Small(inner[at]), high = isRange ? Small(inner[at + 2]) : low;
    if (sign >= low && sign <= high) return !negated;
    if (isRange) at += 2;
  }
  return negated;
}

/// Blanks at the text's end that the pattern does not ask for are passed over.
/// @param escape 0 for none
inline bool IsLike(std::u32string_view text, std::u32string_view pattern, char32_t escape = 0) {
  if (pattern.empty()) return std::all_of(text.begin(), text.end(), [](char32_t sign) { return sign == U' '; });
  const char32_t sign = pattern[0];
  if (escape != 0 && sign == escape && pattern.size() > 1)
    return !text.empty() && Small(text[0]) == Small(pattern[1]) && IsLike(text.substr(1), pattern.substr(2), escape);
  if (sign == U'%') {
    for (std::size_t at = 0; at <= text.size(); ++at)
      if (IsLike(text.substr(at), pattern.substr(1), escape)) return true;
    return false;
  }
  const std::size_t close = sign == U'[' ? pattern.find(U']', 2) : 0;
  if (close == std::u32string_view::npos || text.empty()) return false;
  const bool fits = sign == U'[' ? IsInLikeClass(pattern.substr(1, close - 1), Small(text[0]))
                                 : sign == U'_' || Small(sign) == Small(text[0]);
  return fits && IsLike(text.substr(1), pattern.substr(close + 1), escape);
}

}  // namespace folvane::test::oracle
