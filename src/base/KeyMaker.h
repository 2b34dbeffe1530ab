#pragma once

#include <QString>
#include <random>
#include <unordered_set>

namespace folvane {

/// The key of a new record, original or flow sheet: the time to the second as yyyymmddhhnnss and six random digits,
/// 20 digits in all.
QString CreateName();

/// Random numbers for keys: seeded from the clock anew for each number. Record keys are made of the second and of six
/// random digits, and an archive transfer makes hundreds in a second; so a number whose first six digits were given in
/// this second or the one before is not given again.
class ClockSeededRandom {
 public:
  ClockSeededRandom();
  /// In [0, 1).
  double Next();

 private:
  double Draw();
  void ForgetOldDraws();

  /// One of whose numbers costs next to nothing after a new seed: the multiplier of Knuth's MMIX.
  std::linear_congruential_engine<std::uint64_t, 6364136223846793005, 1442695040888963407, 0> generator_;
  qint64 second_ = 0;
  std::unordered_set<int> drawn_, drawnBefore_;
};

}  // namespace folvane
