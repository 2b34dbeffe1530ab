#include "host/demo/RecordKeys.h"

namespace folvane::demo {

QString RecordKeys::At(const QDateTime& moment) {
  if (moment != second_) {
    second_ = moment;
    taken_.clear();
  }
  int digits = random_.Below(100'000);
  while (taken_.contains(digits)) digits = random_.Below(100'000);
  taken_.insert(digits);
  const QDate day = moment.date();
  const QTime time = moment.time();
  return QString::asprintf("%04d%02d%02d%02d%02d%02d%05d%d", day.year(), day.month(), day.day(), time.hour(),
                           time.minute(), time.second(), digits, int(kind_));
}

}  // namespace folvane::demo
