#include "components/common/KeptText.h"

#include <exception>

#include <folvane/HostServices.h>

namespace folvane {

QString ReadKept(const QString& key, const QString& name) {
  try {
    const auto& registry = Services().registry;
    return registry ? registry->Read(key, name) : QString();
  } catch (const std::exception&) {
    return {};
  }
}

void WriteKept(const QString& key, const QString& name, const QString& text) {
  try {
    if (const auto& registry = Services().registry) registry->Write(key, name, text);
  } catch (const std::exception&) {
  }
}

}  // namespace folvane
