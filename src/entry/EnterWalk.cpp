#include "entry/EnterWalk.h"

#include <algorithm>

namespace folvane {

ControlId EnterWalk::Current() const {
  return size_t(position_) < keys_.size() ? keys_[size_t(position_)] : ControlId();
}

EnterWalk::Step EnterWalk::Next(const ControlId& from, bool mayEdit) {
  const auto found = std::find(keys_.begin() + 1, keys_.end(), from);
  if (found != keys_.end()) position_ = int(found - keys_.begin());
  const bool isLast = position_ + 1 >= int(keys_.size());
  if (isLast && mayEdit) return Step::AddRecord;
  position_ = isLast ? 1 : position_ + 1;
  return Step::Focus;
}

}  // namespace folvane
