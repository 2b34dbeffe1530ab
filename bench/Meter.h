#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

namespace folvane::bench {

/// What a case took: time, and memory still held at the end over that at the start.
struct Sample {
  double milliseconds = 0;
  double mebibytes = 0;
};

/// Set around the part of a case that counts.
class Meter {
 public:
  void Start();
  void Stop();
  /// The same for one of so many equal steps.
  void StopAfter(int steps);
  const Sample& Result() const { return sample_; }

 private:
  QElapsedTimer timer_;
  qint64 residentAtStart_ = 0;
  Sample sample_;
};

}  // namespace folvane::bench
