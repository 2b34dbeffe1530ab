#include "base/WildcardPattern.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr qsizetype kNone = -1;

[[noreturn]] void Refuse(QStringView part, const QString& why) {
  throw PatternError(u"格式“%1”有误：%2。"_s.arg(part).arg(why));
}

}  // namespace

WildcardPattern::WildcardPattern(QStringView pattern) {
  for (qsizetype at = 0; at < pattern.size(); ++at) {
    const char16_t letter = pattern[at].unicode();
    switch (letter) {
      case u'*':
        elements_.emplace_back(AnyRun());
        break;
      case u'?':
        elements_.emplace_back(Any());
        break;
      case u'#':
        elements_.emplace_back(Only(u'0', u'9'));
        break;
      case u'[': {
        const qsizetype end = pattern.indexOf(u']', at);
        if (end == kNone) Refuse(pattern, u"方括号没有闭合"_s);
        AddList(pattern.mid(at + 1, end - at - 1));
        at = end;
        break;
      }
      default:
        elements_.emplace_back(Only(letter, letter));
    }
  }
}

void WildcardPattern::AddList(QStringView list) {
  if (list.isEmpty()) return;  // no character at all
  OneOf set;
  set.negated = list.size() > 1 && list.front() == u'!';
  if (set.negated) list = list.mid(1);
  for (qsizetype at = 0; at < list.size(); ++at) {
    const char16_t first = list[at].unicode();
    const bool atAnEnd = at == 0 || at == list.size() - 1;
    if (first == u'-' && !atAnEnd) Refuse(list, u"连字符两侧不是一个范围"_s);
    const bool begins = at + 2 < list.size() && list[at + 1] == u'-';
    const char16_t last = begins ? list[at + 2].unicode() : first;
    if (last < first) Refuse(list, u"范围的起点大于终点"_s);
    set.ranges.push_back({first, last});
    if (begins) at += 2;
  }
  elements_.emplace_back(std::move(set));
}

bool WildcardPattern::Accepts(const OneOf& set, QChar letter) {
  for (const Range& range : set.ranges) {
    if (letter >= range.first && letter <= range.last) return !set.negated;
  }
  return set.negated;
}

// A run takes as little as it can and one character more each time what follows it does not fit. Only the last run met
// has to be tried again: what stood before it has already been matched in the shortest way.
bool WildcardPattern::Matches(QStringView text) const {
  const std::size_t count = elements_.size();
  std::size_t element = 0, afterRun = count;
  qsizetype at = 0, runEnd = 0;
  bool runMet = false;
  while (at < text.size() || element < count) {
    if (element < count && std::holds_alternative<AnyRun>(elements_[element])) {
      runMet = true;
      afterRun = ++element;
      runEnd = at;
    } else if (element < count && at < text.size() && Accepts(std::get<OneOf>(elements_[element]), text[at])) {
      ++element;
      ++at;
    } else if (runMet && runEnd < text.size()) {
      element = afterRun;
      at = ++runEnd;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace folvane
