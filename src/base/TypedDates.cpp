#include <QDate>
#include <QRegularExpression>
#include <vector>

#include "base/HalfWidth.h"
#include "base/Surroundings.h"
#include "base/TypedValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The day of a time of day that stands alone.
const QDate kFirstOfCalendar(1899, 12, 30);

/// A number of a date as it was written: how many digits it has tells a year from a month or a day.
struct Part {
  int value = 0;
  bool isLong = false;

  static Part Of(QStringView digits) { return {digits.toInt(), digits.size() > 2}; }
  bool CanBeYear() const { return isLong ? value >= 100 : true; }
  bool CanOnlyBeYear() const { return isLong || value > 31; }
  /// Two digits are of this century up to 29.
  int Year() const { return isLong ? value : value + (value < 30 ? 2000 : 1900); }
};

using Reading = std::optional<QDate>;

Reading DateOf(const Part& year, const Part& month, const Part& day) {
  if (!year.CanBeYear() || month.isLong || day.isLong) return {};
  const QDate date(year.Year(), month.value, day.value);
  return date.isValid() ? Reading(date) : Reading();
}

Reading FirstOf(const Reading& one, const Reading& other) { return one ? one : other; }

Part ThisYear() { return {Today().year(), true}; }
constexpr Part kFirstDay{1, false};

Reading DateOfTwo(const Part& first, const Part& second) {
  if (const Reading date = FirstOf(DateOf(ThisYear(), first, second), DateOf(ThisYear(), second, first))) return date;
  return FirstOf(DateOf(second, first, kFirstDay), DateOf(first, second, kFirstDay));
}

Reading DateOfThree(const Part& first, const Part& second, const Part& third) {
  if (const Reading date = DateOf(first, second, third)) return date;
  if (first.CanOnlyBeYear()) return {};
  return FirstOf(DateOf(third, first, second), DateOf(third, second, first));
}

QRegularExpression Whole(const QString& pattern) {
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

Reading ReadNumericDate(const QString& text) {
  static const QRegularExpression pattern =
      Whole(uR"((\d{1,4})(?:\s*[-/,]\s*|\s+)(\d{1,4})(?:(?:\s*[-/,]\s*|\s+)(\d{1,4}))?)"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  const auto part = [&](int group) { return Part::Of(match.capturedView(group)); };
  return match.hasCaptured(3) ? DateOfThree(part(1), part(2), part(3)) : DateOfTwo(part(1), part(2));
}

Reading ReadChineseDate(const QString& text) {
  static const QRegularExpression pattern = Whole(uR"((?:(\d{1,4})\s*年\s*)?(\d{1,2})\s*月(?:\s*(\d{1,2})\s*日?)?)"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch() || !(match.hasCaptured(1) || match.hasCaptured(3))) return {};
  const Part month = Part::Of(match.capturedView(2));
  const Part day = match.hasCaptured(3) ? Part::Of(match.capturedView(3)) : kFirstDay;
  if (match.hasCaptured(1)) return DateOf(Part::Of(match.capturedView(1)), month, day);
  if (const Reading date = DateOf(ThisYear(), month, day)) return date;
  // The last day of February in a year that does not have it; other years do.
  return DateOf({2000, true}, month, day) ? DateOf(ThisYear(), {3, false}, kFirstDay) : Reading();
}

Reading ReadEnglishDate(const QString& text) {
  static const QRegularExpression pattern = Whole(
      uR"((?:(\d{1,4})[-/,\s]*)?(jan(?:uary)?|feb(?:ruary)?|mar(?:ch)?|apr(?:il)?|may|june?|july?)"
      R"(|aug(?:ust)?|sep(?:tember)?|oct(?:ober)?|nov(?:ember)?|dec(?:ember)?))"
      R"((?:[-/,\s]*(\d{1,4})(?:[-/,\s]+(\d{1,4}))?)?)"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  static const QString months = u"janfebmaraprmayjunjulaugsepoctnovdec"_s;
  const Part month{int(months.indexOf(match.capturedView(2).left(3)) / 3) + 1, false};
  std::vector<Part> others;
  for (const int group : {1, 3, 4}) {
    if (match.capturedLength(group)) others.push_back(Part::Of(match.capturedView(group)));
  }
  if (others.size() == 1) return FirstOf(DateOf(ThisYear(), month, others[0]), DateOf(others[0], month, kFirstDay));
  if (others.size() != 2) return {};
  return FirstOf(DateOf(others[0], month, others[1]), DateOf(others[1], month, others[0]));
}

/// Takes one time of day out of the text, at its start or its end. False when there is a time that no clock shows.
bool TakeTime(QString& text, bool& taken) {
  static const QRegularExpression pattern(
      uR"((?<![\d.:/-])(上午|下午|am|pm|a|p)?\s*(\d{1,2})\s*)"
      R"((?:[:.]\s*(\d{1,2})(?:\s*[:.]\s*(\d{1,2}))?|[时点](?:\s*(\d{1,2})\s*分(?:\s*(\d{1,2})\s*秒)?)?|(?=[ap]m?\b|上午|下午)))"
      R"(\s*([ap]m?\b|上午|下午)?(?![\d.:/-]))"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  taken = match.hasMatch();
  if (!taken) return true;
  const auto number = [&](int group) { return match.capturedView(group).toInt(); };
  const bool halves = match.capturedLength(1) || match.capturedLength(7);
  const bool both = match.capturedLength(1) && match.capturedLength(7);
  const int minute = qMax(number(3), number(5)), second = qMax(number(4), number(6));
  const bool atEdge = match.capturedStart() == 0 || match.capturedEnd() == text.size();
  text = text.remove(match.capturedStart(), match.capturedLength()).trimmed();
  return atEdge && !both && number(2) <= (halves ? 12 : 23) && minute < 60 && second < 60;
}

}  // namespace

std::optional<QDate> ReadDate(const QString& text) {
  QString rest = ToHalfWidth(text).trimmed().toLower();
  bool hasTime = false;
  if (!TakeTime(rest, hasTime)) return {};
  if (rest.isEmpty()) return hasTime ? Reading(kFirstOfCalendar) : Reading();
  if (const Reading date = FirstOf(ReadNumericDate(rest), ReadChineseDate(rest))) return date;
  return ReadEnglishDate(rest);
}

bool IsDate(const QString& text) { return ReadDate(text).has_value(); }

}  // namespace folvane
