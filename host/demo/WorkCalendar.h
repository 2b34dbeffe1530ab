#pragma once

#include <QDateTime>
#include <vector>

namespace folvane::demo {

/// The working hours of a span of days, Monday to Friday from half past eight to half past five. Things spread over
/// them evenly come in the order of time.
class WorkCalendar {
 public:
  WorkCalendar(QDate first, QDate last);

  /// The moment of the index-th of count things.
  QDateTime At(qint64 index, qint64 count) const;
  /// How many of count things come before the year.
  qint64 CountBefore(int year, qint64 count) const;
  qint64 Days() const { return qint64(days_.size()); }

 private:
  std::vector<QDate> days_;
};

}  // namespace folvane::demo
