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
  for (qsizetype place = 0; place < pattern.size(); ++place) {
    const char16_t letter = pattern[place].unicode();
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
        const qsizetype end = pattern.indexOf(u']', place);
        if (end == kNone) Refuse(pattern, u"方括号没有闭合"_s);
        AddList(pattern.mid(place + 1, end - place - 1));
        place = end;
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
  for (qsizetype place = 0; place < list.size(); ++place) {
    const char16_t first = list[place].unicode();
    const bool atAnEnd = place == 0 || place == list.size() - 1;
    if (first == u'-' && !atAnEnd) Refuse(list, u"连字符两侧不是一个范围"_s);
    const bool begins = place + 2 < list.size() && list[place + 1] == u'-';
    const char16_t last = begins ? list[place + 2].unicode() : first;
    if (last < first) Refuse(list, u"范围的起点大于终点"_s);
    set.ranges.push_back({first, last});
    if (begins) place += 2;
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
  qsizetype place = 0, runEnd = 0;
  bool runMet = false;
  while (place < text.size() || element < count) {
    if (element < count && std::holds_alternative<AnyRun>(elements_[element])) {
      runMet = true;
      afterRun = ++element;
      runEnd = place;
    } else if (element < count && place < text.size() && Accepts(std::get<OneOf>(elements_[element]), text[place])) {
      ++element;
      ++place;
    } else if (runMet && runEnd < text.size()) {
      element = afterRun;
      place = ++runEnd;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace folvane
