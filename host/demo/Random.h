#pragma once

#include <QStringList>
#include <random>

namespace folvane::demo {

/// The dice of the demo data: one seed gives one database on every machine, which the standard distributions would not.
class Random {
 public:
  explicit Random(quint64 seed) : engine_(seed) {}

  /// A whole number from 0 to limit - 1.
  int Below(int limit) { return int(engine_() % quint64(limit)); }
  int Between(int least, int most) { return least + Below(most - least + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  const QString& Pick(const QStringList& list) { return list[Below(int(list.size()))]; }

 private:
  std::mt19937_64 engine_;
};

}  // namespace folvane::demo
