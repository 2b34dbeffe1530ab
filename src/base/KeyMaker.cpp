#include "base/KeyMaker.h"

#include <chrono>
#include <utility>

#include <folvane/HostServices.h>
#include <folvane/createdname.h>

namespace folvane {
namespace {

// Zeros before the trimmed number up to the width; a longer number stays whole.
QString Padded(int number, int width) { return QString::number(number).rightJustified(width, u'0'); }

std::chrono::nanoseconds SinceEpoch() { return std::chrono::system_clock::now().time_since_epoch(); }

}  // namespace

QString CreateName() {
  const auto now = [] { return Services().now(); };  // the clock is read anew for each part
  QString name = QString::number(now().date().year());
  name += Padded(now().date().month(), 2);
  name += Padded(now().date().day(), 2);
  name += Padded(now().time().hour(), 2);
  name += Padded(now().time().minute(), 2);
  name += Padded(now().time().second(), 2);
  return name + Padded(int(Services().random() * 1e6), 6);
}

QString createdname::CreateName() const { return folvane::CreateName(); }

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
