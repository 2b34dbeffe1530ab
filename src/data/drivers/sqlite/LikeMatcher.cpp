#include "data/drivers/sqlite/LikeMatcher.h"

#include <algorithm>
#include <cstring>

namespace folvane {

namespace {

char32_t Folded(char32_t c) { return c >= U'A' && c <= U'Z' ? c + 32 : c; }

// The character at a position, which moves behind it. A broken sequence counts byte by byte.
char32_t Next(const char*& at, const char* end) {
  const auto lead = uchar(*at++);
  const int more = lead < 0xc0 ? 0 : lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
  if (more == 0 || end - at < more) return lead;
  char32_t sign = lead & (0x3f >> more);
  for (int i = 0; i < more; ++i) sign = (sign << 6) | (uchar(*at++) & 0x3f);
  return sign;
}

}  // namespace

LikeMatcher::LikeMatcher(QByteArrayView pattern, char32_t escape) {
  const char* at = pattern.data();
  const char* const end = at + pattern.size();
  while (at < end) {
    const char32_t sign = Next(at, end);
    if (escape && sign == escape && at < end)
      parts_.push_back({Part::Sign, Folded(Next(at, end)), false, {}});
    else if (sign == U'%')
      parts_.push_back({Part::Run, 0, false, {}});
    else if (sign == U'_')
      parts_.push_back({Part::Any, 0, false, {}});
    else if (sign == U'[')
      ReadClass(at, end);
    else
      parts_.push_back({Part::Sign, Folded(sign), false, {}});
  }
}

// The first sign inside is never the closing one.
void LikeMatcher::ReadClass(const char*& at, const char* end) {
  const auto* close =
      at < end ? static_cast<const char*>(std::memchr(at + 1, ']', std::size_t(end - at - 1))) : nullptr;
  Part part{close ? Part::Class : Part::Nothing, 0, false, {}};
  if (close && *at == '^' && close > at + 1) {
    part.negated = true;
    ++at;
  }
  while (close && at < close) {
    const char32_t low = Folded(Next(at, close));
    char32_t high = low;
    if (at + 1 < close && *at == '-') {
      ++at;
      high = Folded(Next(at, close));
    }
    part.ranges.push_back({low, high});
  }
  at = close ? close + 1 : end;
  parts_.push_back(std::move(part));
}

bool LikeMatcher::MatchesOne(const Part& part, char32_t sign) {
  switch (part.kind) {
    case Part::Any:
      return true;
    case Part::Sign:
      return part.sign == Folded(sign);
    case Part::Class: {
      const char32_t wanted = Folded(sign);
      const bool found = std::any_of(part.ranges.begin(), part.ranges.end(),
                                     [&](const Range& range) { return wanted >= range.low && wanted <= range.high; });
      return found != part.negated;
    }
    default:
      return false;
  }
}

bool LikeMatcher::Matches(QByteArrayView text) const {
  const char* at = text.data();
  const char* const end = at + text.size();
  const auto onlyBlanks = [&](const char* from) { return std::all_of(from, end, [](char c) { return c == ' '; }); };
  std::size_t part = 0, run = parts_.size();
  const char* runAt = nullptr;
  for (;;) {
    if (part == parts_.size()) {
      if (onlyBlanks(at)) return true;
    } else if (parts_[part].kind == Part::Run) {
      run = part++;
      runAt = at;
      continue;
    } else if (at < end) {
      const char* next = at;
      if (MatchesOne(parts_[part], Next(next, end))) {
        at = next;
        ++part;
        continue;
      }
    }
    // The last run takes one character more, if there is one.
    if (!runAt || runAt >= end) return false;
    Next(runAt, end);
    at = runAt;
    part = run + 1;
  }
}

}  // namespace folvane
