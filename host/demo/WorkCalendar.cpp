#include "host/demo/WorkCalendar.h"

#include <algorithm>

namespace folvane::demo {
namespace {

constexpr qint64 kSecondsOfDay = 9 * 3600;
const QTime kMorning(8, 30);

}  // namespace

WorkCalendar::WorkCalendar(QDate first, QDate last) {
  for (QDate day = first; day <= last; day = day.addDays(1))
    if (day.dayOfWeek() < Qt::Saturday) days_.push_back(day);
  if (days_.empty()) days_.push_back(last);
}

QDateTime WorkCalendar::At(qint64 index, qint64 count) const {
  const qint64 second = index * Days() * kSecondsOfDay / count;
  const QDate day = days_[size_t(second / kSecondsOfDay)];
  return QDateTime(day, kMorning.addSecs(int(second % kSecondsOfDay)), Qt::UTC);
}

qint64 WorkCalendar::CountBefore(int year, qint64 count) const {
  const auto firstDay = std::lower_bound(days_.begin(), days_.end(), QDate(year, 1, 1));
  const qint64 second = (firstDay - days_.begin()) * kSecondsOfDay;
  // The first index whose moment is not before that second.
  return (second * count + Days() * kSecondsOfDay - 1) / (Days() * kSecondsOfDay);
}

}  // namespace folvane::demo
