#include <QCoreApplication>

#include <folvane/HostServices.h>

#include "base/FileRegistryStore.h"
#include "base/KeyMaker.h"

namespace folvane {
namespace {

HostServices DefaultServices() {
  HostServices services;
  services.now = [] { return QDateTime::currentDateTime(); };
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
