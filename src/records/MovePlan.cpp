#include "records/MovePlan.h"

namespace folvane {

MovePlan PlanMove(qint64 target, const ListWindow& window) {
  const qint64 first = window.position - window.index + 1;
  const qint64 last = window.position - window.index + window.count;
  if (target > last) {
    const qint64 gap = target - last;
    if (gap > kPageSize) return {MovePlan::RestartDown};
    return {MovePlan::GrowDown, 0, int(gap)};
  }
  if (target < first) {
    if (window.position - target > kPageSize) return {MovePlan::RestartUp};
    return {MovePlan::GrowUp, 0, int(first - target)};
  }
  if (target == window.position) return {MovePlan::Stay};
  return {MovePlan::Select, int(window.index - (window.position - target))};
}

}  // namespace folvane
