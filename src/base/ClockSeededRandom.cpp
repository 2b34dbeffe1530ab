#include "base/ClockSeededRandom.h"

#include <chrono>
#include <utility>

namespace folvane {
namespace {

std::chrono::nanoseconds SinceEpoch() { return std::chrono::system_clock::now().time_since_epoch(); }

}  // namespace

ClockSeededRandom::ClockSeededRandom() : generator_(std::random_device{}()) {}

double ClockSeededRandom::Next() {
  ForgetOldDraws();
  double number = Draw();
  // Half of the million is room enough for two seconds; beyond that a repeat is let pass rather than searched round.
  while (drawn_.size() + drawnBefore_.size() < 500'000 &&
         (drawnBefore_.count(int(number * 1e6)) || drawn_.count(int(number * 1e6)))) {
    number = Draw();
  }
  drawn_.insert(int(number * 1e6));
  return number;
}

double ClockSeededRandom::Draw() {
  // The draw before goes into the seed: the clock alone would repeat itself within one tick.
  generator_.seed(generator_() ^ std::uint64_t(SinceEpoch().count()));
  return double(generator_() >> 11) * 0x1p-53;
}

void ClockSeededRandom::ForgetOldDraws() {
  const qint64 second = std::chrono::duration_cast<std::chrono::seconds>(SinceEpoch()).count();
  if (second == second_) return;
  drawnBefore_ = second == second_ + 1 ? std::exchange(drawn_, {}) : std::unordered_set<int>{};
  drawn_.clear();
  second_ = second;
}

}  // namespace folvane
