#pragma once

#include "host/demo/Random.h"

namespace folvane::demo {

/// Picks exactly `wanted` of `candidates` things as they come by, each with the same chance.
class Selection {
 public:
  Selection(qint64 wanted, qint64 candidates, Random& random)
      : wanted_(wanted), candidates_(candidates), random_(random) {}

  bool Next() {
    const bool picked = wanted_ > 0 && random_.Below(int(candidates_)) < wanted_;
    --candidates_;
    if (picked) --wanted_;
    return picked;
  }

 private:
  qint64 wanted_, candidates_;
  Random& random_;
};

}  // namespace folvane::demo
