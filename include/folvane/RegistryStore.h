#pragma once

#include <QString>

#include <folvane/Export.h>

namespace folvane {

/// An ordered store of texts under the registry's paths, such as "HKEY_LOCAL_MACHINE\\Software\\Norvex\\MainFlags".
/// Keys and names compare without regard to case.
class FOLVANE_EXPORT RegistryStore {
 public:
  virtual ~RegistryStore() = default;
  /// The text of a value, "" when the key or the value is missing.
  virtual QString Read(const QString& key, const QString& name) const = 0;
  virtual void Write(const QString& key, const QString& name, const QString& text) = 0;
};

}  // namespace folvane
