#include "base/KeyMaker.h"

#include <QCoreApplication>
#include <chrono>

#include <folvane/HostServices.h>
#include <folvane/createdname.h>

namespace folvane {
namespace {

constexpr int kNumbers = 1'000'000;

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
  return name + Padded(int(Services().random() * kNumbers), 6);
}

QString createdname::CreateName() const { return folvane::CreateName(); }

ClockSeededRandom::ClockSeededRandom() : generator_(std::random_device{}()) {}

// Halves keep the number whole when it is multiplied again.
double ClockSeededRandom::Next() {
  const qint64 second = std::chrono::duration_cast<std::chrono::seconds>(SinceEpoch()).count();
  const qint64 process = QCoreApplication::applicationPid();
  const bool goesOn = process == process_ && second <= second_ + 1;  // also when the clock was put back
  number_ = goesOn ? (number_ + 1) % kNumbers : Drawn();
  process_ = process;  // a process that copies another does not go on with its numbers
  second_ = second;
  return (number_ + 0.5) / kNumbers;
}

// The draw before goes into the seed: the clock alone would repeat itself within one tick.
int ClockSeededRandom::Drawn() {
  generator_.seed(generator_() ^ std::uint64_t(SinceEpoch().count()));
  return int(generator_() % kNumbers);
}

}  // namespace folvane
