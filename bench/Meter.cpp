#include "bench/Meter.h"

#include <QFile>
#include <unistd.h>

namespace folvane::bench {

namespace {

qint64 ResidentBytes() {
  QFile file(QStringLiteral("/proc/self/statm"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  return file.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

}  // namespace

void Meter::Start() {
  residentAtStart_ = ResidentBytes();
  timer_.start();
}

void Meter::Stop() { StopAfter(1); }

void Meter::StopAfter(int steps) {
  sample_.milliseconds = double(timer_.nsecsElapsed()) / 1e6 / steps;
  sample_.mebibytes = double(ResidentBytes() - residentAtStart_) / (1 << 20);
}

}  // namespace folvane::bench
