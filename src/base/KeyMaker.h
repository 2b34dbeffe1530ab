#pragma once

#include <QString>
#include <random>

namespace folvane {

/// The key of a new record, original or flow sheet: the time to the second as yyyymmddhhnnss and six random digits,
/// 20 digits in all.
QString CreateName();

/// Numbers for the six digits of keys: a random one, seeded from the clock, and as long as one follows another within a
/// second, each a millionth above the one before. A transfer into the archive takes hundreds in a second. Were all of
/// them random, two users who archive in the same second would take some key both in one second of sixteen; as it is,
/// they do so when one has by chance begun within the stretch of the other, in one of two thousand. And nobody takes
/// the same twice.
class ClockSeededRandom {
 public:
  ClockSeededRandom();
  /// In [0, 1).
  double Next();

 private:
  int Drawn();

  std::mt19937_64 generator_;
  qint64 process_ = 0, second_ = 0;
  int number_ = 0;  ///< of millionths
};

}  // namespace folvane
