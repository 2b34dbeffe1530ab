#include <QCoreApplication>

#include <folvane/HostServices.h>

#include "base/FileRegistryStore.h"
#include "base/KeyMaker.h"

namespace folvane {
namespace {

// The zone is asked for once in a quarter of an hour, at whose ends alone it changes: each question looks at the disk.
QDateTime LocalTime() {
  constexpr qint64 kQuarter = 15 * 60 * 1000;
  thread_local qint64 quarter = -1;
  thread_local int offset = 0;
  const qint64 moment = QDateTime::currentMSecsSinceEpoch();
  if (moment / kQuarter != quarter) {
    quarter = moment / kQuarter;
    offset = QDateTime::fromMSecsSinceEpoch(moment).offsetFromUtc();
  }
  return QDateTime::fromMSecsSinceEpoch(moment, Qt::OffsetFromUTC, offset);
}

HostServices DefaultServices() {
  HostServices services;
  services.now = LocalTime;
  services.random = [generator = std::make_shared<ClockSeededRandom>()] { return generator->Next(); };
  services.registry = std::make_shared<FileRegistryStore>(FileRegistryStore::UserPath());
  return services;
}

}  // namespace

HostServices& Services() {
  static HostServices services = DefaultServices();
  // A host may set up the services before it makes its application object, which alone knows the directory.
  if (services.programDirectory.isEmpty() && QCoreApplication::instance()) {
    services.programDirectory = QCoreApplication::applicationDirPath();
  }
  return services;
}

}  // namespace folvane
