#include "data/persist/PersistedMoment.h"

#include <QDate>
#include <cmath>

namespace folvane {

namespace {

constexpr qint64 kDateZero = 2415019;      // Julian day of 1899-12-30
constexpr qint64 kFileTimeZero = 2305814;  // of 1601-01-01
constexpr double kMostDays = 3.5e7;        // years of five digits
constexpr qint64 kMillisecondsOfDay = 86'400'000;
constexpr quint64 kStepsOfSecond = 10'000'000;
constexpr quint64 kStepsOfDay = 86'400 * kStepsOfSecond;
constexpr quint32 kNanosecondsOfStep = 100;

void SetDate(PersistedMoment& moment, qint64 julianDay) {
  const QDate date = QDate::fromJulianDay(julianDay);
  moment.year = date.year() < 0 ? date.year() + 1 : date.year();  // the calendar of Qt has no year 0
  moment.month = date.month();
  moment.day = date.day();
}

void SetTime(PersistedMoment& moment, int seconds) {
  moment.hour = seconds / 3600;
  moment.minute = seconds / 60 % 60;
  moment.second = seconds % 60;
}

std::optional<qint64> JulianDay(const PersistedMoment& moment) {
  const QDate date(moment.year <= 0 ? moment.year - 1 : moment.year, moment.month, moment.day);
  return date.isValid() ? std::optional(date.toJulianDay()) : std::nullopt;
}

bool HasUsualTime(const PersistedMoment& moment) {
  return moment.hour < 24 && moment.minute < 60 && moment.second < 60 && moment.nanosecond < 1'000'000'000;
}

void AppendNumber(QByteArray& text, quint32 number, int width) {
  char digits[10];
  int count = 0;
  do {
    digits[count++] = char('0' + number % 10);
    number /= 10;
  } while (number || count < width);
  while (count) text.append(digits[--count]);
}

/// Reads what stands in a text character by character.
class TextScanner {
 public:
  explicit TextScanner(QByteArrayView text) : at_(text.begin()), end_(text.end()) {}
  bool AtEnd() const { return at_ == end_; }
  bool Skip(char c) {
    if (at_ == end_ || *at_ != c) return false;
    ++at_;
    return true;
  }
  /// Exactly so many digits.
  bool Number(int count, int& number) {
    if (end_ - at_ < count) return false;
    number = 0;
    for (; count > 0; --count, ++at_) {
      if (*at_ < '0' || *at_ > '9') return false;
      number = number * 10 + (*at_ - '0');
    }
    return true;
  }
  bool Fraction(quint32& nanosecond) {
    const char* begin = at_;
    nanosecond = 0;
    for (quint32 unit = 100'000'000; at_ < end_ && *at_ >= '0' && *at_ <= '9'; ++at_, unit /= 10)
      nanosecond += quint32(*at_ - '0') * unit;
    return at_ > begin;
  }
  bool Time(PersistedMoment& moment) {
    if (!Number(2, moment.hour) || !Skip(':') || !Number(2, moment.minute)) return false;
    if (Skip(':') && !Number(2, moment.second)) return false;
    return (!Skip('.') || Fraction(moment.nanosecond)) && HasUsualTime(moment);
  }
  bool Date(PersistedMoment& moment) {
    const bool before = Skip('-');
    int digits = 4;
    if (!before && Skip('+')) digits = 5;
    if (!Number(digits, moment.year)) return false;
    if (before) moment.year = -moment.year;
    return Skip('-') && Number(2, moment.month) && Skip('-') && Number(2, moment.day);
  }

 private:
  const char* at_;
  const char* end_;
};

}  // namespace

std::optional<PersistedMoment> PersistedMoment::OfDays(double days) {
  if (!(std::fabs(days) < kMostDays)) return std::nullopt;
  const double whole = std::trunc(days);
  const qint64 milliseconds = std::llround(std::fabs(days - whole) * double(kMillisecondsOfDay));
  PersistedMoment moment;
  SetDate(moment, kDateZero + qint64(whole) + milliseconds / kMillisecondsOfDay);
  SetTime(moment, int(milliseconds % kMillisecondsOfDay / 1000));
  moment.nanosecond = quint32(milliseconds % 1000) * 1'000'000;
  return moment;
}

PersistedMoment PersistedMoment::OfFileTime(quint64 steps) {
  PersistedMoment moment;
  SetDate(moment, kFileTimeZero + qint64(steps / kStepsOfDay));
  SetTime(moment, int(steps % kStepsOfDay / kStepsOfSecond));
  moment.nanosecond = quint32(steps % kStepsOfSecond) * kNanosecondsOfStep;
  return moment;
}

std::optional<PersistedMoment> PersistedMoment::Read(QByteArrayView text) {
  PersistedMoment moment;
  TextScanner scanner(text);
  if (!scanner.Date(moment) || !JulianDay(moment)) return std::nullopt;
  if (scanner.AtEnd()) return moment;
  if (!scanner.Skip(' ') && !scanner.Skip('T')) return std::nullopt;
  return scanner.Time(moment) && scanner.AtEnd() ? std::optional(moment) : std::nullopt;
}

std::optional<PersistedMoment> PersistedMoment::ReadTime(QByteArrayView text) {
  PersistedMoment moment;
  TextScanner scanner(text);
  return scanner.Time(moment) && scanner.AtEnd() ? std::optional(moment) : std::nullopt;
}

std::optional<double> PersistedMoment::ToDays() const {
  const std::optional<qint64> day = JulianDay(*this);
  if (!day || !HasUsualTime(*this)) return std::nullopt;
  const auto whole = double(*day - kDateZero);
  const double time = ((hour * 60 + minute) * 60 + second + nanosecond / 1e9) / 86'400;
  return whole < 0 ? whole - time : whole + time;
}

std::optional<quint64> PersistedMoment::ToFileTime() const {
  const std::optional<qint64> day = JulianDay(*this);
  const qint64 days = day ? *day - kFileTimeZero : -1;
  if (days < 0 || quint64(days) >= std::numeric_limits<quint64>::max() / kStepsOfDay || !HasUsualTime(*this))
    return std::nullopt;
  const auto seconds = quint64((hour * 60 + minute) * 60 + second);
  return quint64(days) * kStepsOfDay + seconds * kStepsOfSecond + nanosecond / kNanosecondsOfStep;
}

void PersistedMoment::AppendDate(QByteArray& text) const {
  if (year < 0) text.append('-');
  if (year > 9999) text.append('+');
  AppendNumber(text, quint32(std::abs(year)), 4);
  text.append('-');
  AppendNumber(text, quint32(month), 2);
  text.append('-');
  AppendNumber(text, quint32(day), 2);
}

void PersistedMoment::AppendTime(QByteArray& text) const {
  AppendNumber(text, quint32(hour), 2);
  text.append(':');
  AppendNumber(text, quint32(minute), 2);
  text.append(':');
  AppendNumber(text, quint32(second), 2);
  if (nanosecond == 0) return;
  text.append('.');
  AppendNumber(text, nanosecond, 9);
  while (text.endsWith('0')) text.chop(1);
}

}  // namespace folvane
