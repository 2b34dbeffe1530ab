#include "records/MovePlan.h"

namespace folvane {

MovePlan PlanMove(qint64 target, const ListPlace& place) {
  const qint64 first = place.position - place.index + 1;
  const qint64 last = place.position - place.index + place.count;
  if (target > last) {
    const qint64 gap = target - last;
    if (gap > kPageSize) return {MovePlan::RestartDown};
    return {MovePlan::GrowDown, 0, int(gap)};
  }
  if (target < first) {
    if (place.position - target > kPageSize) return {MovePlan::RestartUp};
    return {MovePlan::GrowUp, 0, int(first - target)};
  }
  if (target == place.position) return {MovePlan::Stay};
  return {MovePlan::Select, int(place.index - (place.position - target))};
}

}  // namespace folvane
