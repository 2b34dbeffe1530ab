#include "components/scanning/ScanMemory.h"

#include <exception>

#include <folvane/HostServices.h>

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kScanning = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Scanning"_s;

}  // namespace

QString Remembered(const QString& name) {
  try {
    const auto& registry = Services().registry;
    return registry ? registry->Read(kScanning, name) : QString();
  } catch (const std::exception&) {
    return {};
  }
}

void Remember(const QString& name, const QString& value) {
  try {
    if (const auto& registry = Services().registry) registry->Write(kScanning, name, value);
  } catch (const std::exception&) {
  }
}

}  // namespace folvane::scanning
